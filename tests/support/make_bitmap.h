// Bitmap files built in memory, for the readers of .bmp files and LoadImageW.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tw::test {

// A .bmp of the given depth whose rows, top to bottom as shown, are given as
// raw bytes (palette indexes or BGR(A) values).
inline std::vector<std::uint8_t> MakeBitmap(int bits, int width, std::vector<std::vector<std::uint8_t>> rows,
                                            bool topDown = false, std::vector<std::uint32_t> palette = {}) {
  int height = static_cast<int>(rows.size());
  std::uint32_t stride = (width * bits + 31) / 32 * 4, at = 54 + static_cast<std::uint32_t>(palette.size()) * 4;
  std::vector<std::uint8_t> file = {'B', 'M'};
  auto put = [&](std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) file.push_back(i < 4 ? static_cast<std::uint8_t>(value >> 8 * i) : 0);
  };
  put(at + stride * height, 4), put(0, 4), put(at, 4), put(40, 4), put(width, 4), put(topDown ? -height : height, 4);
  put(1, 2), put(bits, 2), put(0, 16), put(static_cast<std::uint32_t>(palette.size()), 4), put(0, 4);
  for (std::uint32_t colour : palette) put(colour, 4);
  file.resize(at + stride * height);
  for (int shown = 0; shown < height; ++shown) {
    int stored = topDown ? shown : height - 1 - shown;
    std::copy(rows[shown].begin(), rows[shown].end(), file.begin() + at + stored * stride);
  }
  return file;
}

}  // namespace tw::test
