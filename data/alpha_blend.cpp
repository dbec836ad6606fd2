#include "data/alpha_blend.h"

#include <algorithm>

namespace tw {

void BlendRow(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
              const std::uint8_t* alpha, std::uint8_t* bgr, int count) {
  for (int i = 0; i < count; ++i, bgr += 3) {
    unsigned a = alpha[i];
    bgr[0] = BlendChannel(blue[i], bgr[0], a);
    bgr[1] = BlendChannel(green[i], bgr[1], a);
    bgr[2] = BlendChannel(red[i], bgr[2], a);
  }
}

void TintRow(std::uint8_t* bgr, int count, std::uint32_t color, std::uint8_t opacity) {
  unsigned red = color & 0xFF, green = color >> 8 & 0xFF, blue = color >> 16 & 0xFF;
  for (int i = 0; i < count; ++i, bgr += 3) {
    bgr[0] = BlendChannel(blue, bgr[0], opacity);
    bgr[1] = BlendChannel(green, bgr[1], opacity);
    bgr[2] = BlendChannel(red, bgr[2], opacity);
  }
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
