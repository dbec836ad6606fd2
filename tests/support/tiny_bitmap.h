// The smallest bitmap file that LoadImageW accepts: 1 x 1 pixel, 24 bits.
#pragma once

#include <cstdint>
#include <vector>

namespace tw::test {

inline std::vector<std::uint8_t> TinyBitmap() {
  return {'B', 'M', 58, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0,       // file header
          40, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24, 0,     // size, width, height, planes, bits
          0, 0, 0, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,       // no compression, image size
          0, 0, 0, 0, 0, 0, 0, 0,                               // colours used and important
          0xFF, 0, 0, 0};                                       // one blue pixel, row padded to 4
}

}  // namespace tw::test
