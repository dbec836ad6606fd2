// Targa data from skin folders and resource libraries: any bytes must decode
// or fail cleanly, and a decoded image must blend without leaving its planes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "data/alpha_blend.h"
#include "data/targa.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tw::TargaImage image;
  std::int32_t result = tw::DecodeTarga(data, size, image);
  if (result != 0 && !image.Empty()) std::abort();
  if (image.Empty()) return 0;

  // Source offsets from the first header bytes reach before and past the planes.
  int sourceX = static_cast<std::int8_t>(data[3]);
  int sourceY = static_cast<std::int8_t>(data[4]);
  tw::DrawExtent extent = tw::MeasureDraw(image, 24, 24, -1, -1);
  std::vector<std::uint8_t> pixels(24 * 24 * 3, 0x55);
  tw::BgrSurface surface{pixels.data(), 24 * 3, 24, 24};
  tw::BlendImage(image, surface, sourceX, sourceY, extent.clipWidth, extent.clipHeight);
  return 0;
}
