#include "data/alpha_blend.h"

#include <algorithm>

namespace tw {

namespace {

// Rows go in blocks of a fixed pixel count: a loop of known length over
// separate planes is what compilers turn into vector code even at -O2.
constexpr int kBlock = 16;

// One channel of a block, the destination as a plane of its own.
void BlendPlane(const std::uint8_t* source, std::uint8_t* destination, const std::uint8_t* alpha) {
  for (int i = 0; i < kBlock; ++i) destination[i] = BlendChannel(source[i], destination[i], alpha[i]);
}

void BlendBlock(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
                const std::uint8_t* alpha, std::uint8_t* bgr) {
  std::uint8_t b[kBlock], g[kBlock], r[kBlock];
  for (int i = 0; i < kBlock; ++i) {
    b[i] = bgr[3 * i];
    g[i] = bgr[3 * i + 1];
    r[i] = bgr[3 * i + 2];
  }
  BlendPlane(blue, b, alpha);
  BlendPlane(green, g, alpha);
  BlendPlane(red, r, alpha);
  for (int i = 0; i < kBlock; ++i) {
    bgr[3 * i] = b[i];
    bgr[3 * i + 1] = g[i];
    bgr[3 * i + 2] = r[i];
  }
}

}  // namespace

void BlendRow(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
              const std::uint8_t* alpha, std::uint8_t* bgr, int count) {
  int i = 0;
  for (; i + kBlock <= count; i += kBlock) BlendBlock(red + i, green + i, blue + i, alpha + i, bgr + 3 * i);
  for (; i < count; ++i) {
    std::uint8_t* pixel = bgr + 3 * i;
    pixel[0] = BlendChannel(blue[i], pixel[0], alpha[i]);
    pixel[1] = BlendChannel(green[i], pixel[1], alpha[i]);
    pixel[2] = BlendChannel(red[i], pixel[2], alpha[i]);
  }
}

void TintRow(std::uint8_t* bgr, int count, std::uint32_t color, std::uint8_t opacity) {
  // The colour repeated as the bytes of kBlock pixels, then blended bytewise.
  std::uint8_t colorBytes[kBlock * 3], opacities[kBlock * 3];
  for (int k = 0; k < kBlock * 3; k += 3) {
    colorBytes[k] = color >> 16 & 0xFF;
    colorBytes[k + 1] = color >> 8 & 0xFF;
    colorBytes[k + 2] = color & 0xFF;
  }
  std::fill(opacities, opacities + kBlock * 3, opacity);
  int bytes = count * 3, k = 0;
  for (; k + kBlock * 3 <= bytes; k += kBlock * 3)
    for (int block = 0; block < 3; ++block)
      BlendPlane(colorBytes + block * kBlock, bgr + k + block * kBlock, opacities);
  for (; k < bytes; ++k) bgr[k] = BlendChannel(colorBytes[k % 3], bgr[k], opacity);
}

DrawExtent MeasureDraw(const TargaImage& image, int width, int height, int clipWidth, int clipHeight) {
  DrawExtent extent;
  extent.width = width == -1 ? image.width : width;
  extent.height = height == -1 ? image.height : height;
  extent.clipWidth = std::min(clipWidth == -1 ? image.width : clipWidth, extent.width);
  extent.clipHeight = std::min(clipHeight == -1 ? image.height : clipHeight, extent.height);
  return extent;
}

void BlendImage(const TargaImage& image, const BgrSurface& surface, int sourceX, int sourceY,
                int clipWidth, int clipHeight) {
  if (image.Empty()) return;
  const std::int64_t total = static_cast<std::int64_t>(image.PixelCount());
  clipWidth = std::min(clipWidth, surface.width);
  clipHeight = std::min(clipHeight, surface.height);
  for (int j = 0; j < clipHeight; ++j) {
    std::int64_t rowStart = (static_cast<std::int64_t>(j) + sourceY) * image.width + sourceX;
    // The columns i whose index rowStart + i lies in [0, total).
    std::int64_t first = std::max<std::int64_t>(0, -rowStart);
    std::int64_t end = std::min<std::int64_t>(clipWidth, total - rowStart);
    if (first >= end) continue;
    std::size_t s = static_cast<std::size_t>(rowStart + first);
    BlendRow(&image.red[s], &image.green[s], &image.blue[s], &image.alpha[s],
             surface.Row(j) + first * 3, static_cast<int>(end - first));
  }
}

void TintSurface(const BgrSurface& surface, std::uint32_t color, std::uint8_t opacity) {
  for (int y = 0; y < surface.height; ++y) TintRow(surface.Row(y), surface.width, color, opacity);
}

}  // namespace tw
