// Targa images (uncompressed or run-length true colour) decoded into four
// byte planes, the form the alpha drawing blends from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/file_system.h"

namespace tw {

// E_FAIL: every decoding failure reports this one code.
inline constexpr std::int32_t kTargaFailure = static_cast<std::int32_t>(0x80004005u);

// Images for this program are icons and skin pieces no larger than a 480 x
// 640 screen; anything above 1024 x 1024 pixels (4 MB of planes) is refused
// rather than letting a damaged header claim up to 65535 x 65535 (17 GB).
inline constexpr std::int64_t kMaxTargaPixels = 1024 * 1024;

struct TargaImage {
  std::int32_t height = 0;
  std::int32_t width = 0;
  // width x height bytes each, row after row from the top; all null when empty.
  std::unique_ptr<std::uint8_t[]> red, green, blue, alpha;

  bool Empty() const { return !alpha; }
  std::size_t PixelCount() const { return static_cast<std::size_t>(width) * height; }
  void Release();
};

// Decodes a whole Targa file image held in memory: 0 on success, else
// kTargaFailure with the image left empty. Rows go top-down when bit 4
// (0x10) of the descriptor is set, bottom-up otherwise: the program's images
// are authored that way, so bit 5 of the Targa format is ignored on purpose.
// Bytes missing at the end of the data read as zeros. A run-length packet
// longer than the rest of its row goes on into the following bytes of the
// planes, up to their end and never past it.
std::int32_t DecodeTarga(const std::uint8_t* data, std::size_t size, TargaImage& image);

// Reads the file at a device path and decodes it; a missing file fails.
std::int32_t ReadTargaFile(FileSystem& files, std::u16string_view path, TargaImage& image);

}  // namespace tw
