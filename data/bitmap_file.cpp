#include "data/bitmap_file.h"

#include <bit>

namespace tw {
namespace {

constexpr std::uint32_t kFileHeaderSize = 14;
constexpr std::uint32_t kCoreHeaderSize = 12;
constexpr std::uint32_t kRgb = 0, kBitFields = 3, kAlphaBitFields = 6;

class Bytes {
 public:
  explicit Bytes(std::span<const std::uint8_t> data) : data_(data) {}
  bool Has(std::uint64_t offset, std::uint64_t size) const {
    return offset <= data_.size() && size <= data_.size() - offset;
  }
  std::uint32_t U16(std::uint64_t at) const { return data_[at] | data_[at + 1] << 8; }
  std::uint32_t U32(std::uint64_t at) const { return U16(at) | U16(at + 2) << 16; }
  std::uint8_t U8(std::uint64_t at) const { return data_[at]; }

 private:
  std::span<const std::uint8_t> data_;
};

std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) { return r | g << 8 | b << 16; }

// Scales the bits under mask to 0..255.
std::uint32_t Channel(std::uint32_t pixel, std::uint32_t mask) {
  if (mask == 0) return 0;
  std::uint32_t value = (pixel & mask) >> std::countr_zero(mask);
  std::uint32_t max = mask >> std::countr_zero(mask);
  return static_cast<std::uint32_t>((static_cast<std::uint64_t>(value) * 255 + max / 2) / max);
}

}  // namespace

std::optional<std::uint32_t> TopLeftPixel(std::span<const std::uint8_t> file) {
  Bytes bytes(file);
  if (!bytes.Has(0, kFileHeaderSize + 4) || file[0] != 'B' || file[1] != 'M') return std::nullopt;
  std::uint32_t pixelsAt = bytes.U32(10);
  std::uint32_t headerSize = bytes.U32(kFileHeaderSize);
  bool core = headerSize == kCoreHeaderSize;
  if (!core && headerSize < 40) return std::nullopt;
  if (!bytes.Has(kFileHeaderSize, headerSize)) return std::nullopt;

  const std::uint64_t h = kFileHeaderSize;
  // Signed: a negative height marks a top-down bitmap.
  auto signed32 = [&](std::uint64_t at) -> std::int64_t { return static_cast<std::int32_t>(bytes.U32(at)); };
  std::int64_t width = core ? std::int64_t{bytes.U16(h + 4)} : signed32(h + 4);
  std::int64_t height = core ? std::int64_t{bytes.U16(h + 6)} : signed32(h + 8);
  std::uint32_t bitCount = core ? bytes.U16(h + 10) : bytes.U16(h + 14);
  std::uint32_t compression = core ? kRgb : bytes.U32(h + 16);
  if (width <= 0 || height == 0) return std::nullopt;

  std::uint64_t stride = ((static_cast<std::uint64_t>(width) * bitCount + 31) / 32) * 4;
  std::uint64_t row = height > 0 ? static_cast<std::uint64_t>(height) - 1 : 0;
  std::uint64_t pixel = pixelsAt + row * stride;
  if (!bytes.Has(pixel, (bitCount + 7) / 8)) return std::nullopt;

  if (bitCount <= 8 && (bitCount == 1 || bitCount == 4 || bitCount == 8) && compression == kRgb) {
    std::uint32_t index = bytes.U8(pixel) >> (8 - bitCount);
    std::uint64_t entrySize = core ? 3 : 4;
    std::uint64_t palette = h + headerSize;
    std::uint64_t entry = palette + index * entrySize;
    if (!bytes.Has(entry, 3)) return std::nullopt;
    return Rgb(bytes.U8(entry + 2), bytes.U8(entry + 1), bytes.U8(entry));
  }
  if (bitCount == 24 && compression == kRgb)
    return Rgb(bytes.U8(pixel + 2), bytes.U8(pixel + 1), bytes.U8(pixel));
  if (bitCount == 16 || bitCount == 32) {
    std::uint32_t red = bitCount == 16 ? 0x7C00 : 0xFF0000;
    std::uint32_t green = bitCount == 16 ? 0x03E0 : 0x00FF00;
    std::uint32_t blue = bitCount == 16 ? 0x001F : 0x0000FF;
    if (compression == kBitFields || compression == kAlphaBitFields) {
      // Masks follow a 40-byte header, or sit inside a larger one.
      if (!bytes.Has(h + 40, 12)) return std::nullopt;
      red = bytes.U32(h + 40);
      green = bytes.U32(h + 44);
      blue = bytes.U32(h + 48);
    } else if (compression != kRgb) {
      return std::nullopt;
    }
    std::uint32_t value = bitCount == 16 ? bytes.U16(pixel) : bytes.U32(pixel);
    return Rgb(Channel(value, red), Channel(value, green), Channel(value, blue));
  }
  return std::nullopt;
}

}  // namespace tw
