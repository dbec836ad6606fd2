// Reading a pixel straight from the bytes of a .bmp file.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace tw {

// The colour (red in the low byte) of the top-left pixel as the screen shows
// it: the last row in the file of a bottom-up bitmap, the first of a top-down
// one. Uncompressed 1-, 4-, 8-, 16-, 24- and 32-bit files with or without
// bit-field masks; nothing for a run-length, truncated or malformed file.
std::optional<std::uint32_t> TopLeftPixel(std::span<const std::uint8_t> file);

}  // namespace tw
