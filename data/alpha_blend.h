// Per-pixel arithmetic of alpha drawing and tinting, over the 24-bit rows of
// a captured screen rectangle. The capture itself is platform work.
#pragma once

#include <cstddef>
#include <cstdint>

#include "data/targa.h"

namespace tw {

// source x alpha + destination x (255 - alpha), divided by 255 and rounded:
// t = s a + d (255 - a) + 128, then (t + (t >> 8)) >> 8. Opacity 0 keeps the
// destination and 255 gives the source exactly. t is at most 255 x 255 + 128,
// so every step fits 16 bits, which lets compilers use 16-bit vector lanes.
inline std::uint8_t BlendChannel(std::uint8_t source, std::uint8_t destination, std::uint8_t alpha) {
  auto t = static_cast<std::uint16_t>(source * alpha + destination * (255 - alpha) + 128);
  return static_cast<std::uint8_t>((t + (t >> 8)) >> 8);
}

// Pixels stored blue, green, red, 3 bytes each; rows stride bytes apart
// from the top row (negative for a bottom-up section).
struct BgrSurface {
  std::uint8_t* top = nullptr;
  std::ptrdiff_t stride = 0;
  int width = 0;
  int height = 0;

  std::uint8_t* Row(int y) const { return top + y * stride; }
};

// count pixels of unpremultiplied planes blended over a row of 3-byte pixels.
void BlendRow(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
              const std::uint8_t* alpha, std::uint8_t* bgr, int count);
// One colour (red in the low byte) at one opacity over a row.
void TintRow(std::uint8_t* bgr, int count, std::uint32_t color, std::uint8_t opacity);

// The area an image draw covers: width and height default (-1) to the image
// size; the clip defaults likewise and never exceeds the drawn area.
struct DrawExtent {
  int width = 0, height = 0;          // drawn, as captured and copied back
  int clipWidth = 0, clipHeight = 0;  // blended
};
DrawExtent MeasureDraw(const TargaImage& image, int width, int height, int clipWidth, int clipHeight);

// Blends the image over the surface's clipWidth x clipHeight corner, taking
// pixel (i, j) from the planes at i + (j + sourceY) x image width + sourceX.
// An index that leaves the planes is skipped; one past the end of an image
// row takes the start of the next, as a plain index does.
void BlendImage(const TargaImage& image, const BgrSurface& surface, int sourceX, int sourceY,
                int clipWidth, int clipHeight);

void TintSurface(const BgrSurface& surface, std::uint32_t color, std::uint8_t opacity);

}  // namespace tw
