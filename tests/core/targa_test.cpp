#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "data/targa.h"

namespace tw {
namespace {

constexpr std::uint8_t kRaw = 2, kRunLength = 10;

// An 18-byte header, an identification field of idLength bytes, then body.
std::vector<std::uint8_t> Targa(std::uint8_t type, int width, int height, std::uint8_t depth,
                                std::uint8_t descriptor, std::initializer_list<std::uint8_t> body,
                                std::uint8_t idLength = 0) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(18 + idLength + body.size());  // no regrowth: GCC 12 misreads it as out of bounds
  bytes.assign({idLength, 0, type, 0, 0, 0, 0, 0, 0, 0, 0, 0, std::uint8_t(width), std::uint8_t(width >> 8),
                std::uint8_t(height), std::uint8_t(height >> 8), depth, descriptor});
  bytes.insert(bytes.end(), idLength, 0xEE);
  bytes.insert(bytes.end(), body);
  return bytes;
}

TargaImage Decode(const std::vector<std::uint8_t>& bytes) {
  TargaImage image;
  EXPECT_EQ(DecodeTarga(bytes.data(), bytes.size(), image), 0);
  return image;
}

// Pixel (x, y) as b, g, r, a.
std::vector<int> At(const TargaImage& image, int x, int y) {
  std::size_t i = static_cast<std::size_t>(y) * image.width + x;
  return {image.blue[i], image.green[i], image.red[i], image.alpha[i]};
}
using Pixel = std::vector<int>;

// Rows long enough for the block-wise split and its tail, stored raw or as
// one raw packet per row, every pixel compared.
TEST(TargaTest, LongRowsSplitEveryPixel) {
  const int width = 37, height = 2;
  for (std::uint8_t type : {kRaw, kRunLength})
    for (int bytesPerPixel : {3, 4}) {
      SCOPED_TRACE(std::to_string(type) + " at " + std::to_string(bytesPerPixel) + " bytes");
      auto bytes = Targa(type, width, height, std::uint8_t(bytesPerPixel * 8), 0x10, {});
      std::vector<int> expected;
      for (int i = 0, byte = 0; i < width * height; ++i) {
        if (type == kRunLength && i % width == 0) bytes.push_back(width - 1);
        for (int c = 0; c < bytesPerPixel; ++c) bytes.push_back(std::uint8_t(byte++ * 7 + 3));
        expected.insert(expected.end(), bytes.end() - bytesPerPixel, bytes.end());
        if (bytesPerPixel == 3) expected.push_back(255);
      }
      TargaImage image = Decode(bytes);
      std::vector<int> decoded;
      for (int i = 0; i < width * height; ++i) {
        Pixel pixel = At(image, i % width, i / width);
        decoded.insert(decoded.end(), pixel.begin(), pixel.end());
      }
      EXPECT_EQ(decoded, expected);
    }
}

TEST(TargaTest, MissingBytesReadAsZeros) {
  TargaImage raw = Decode(Targa(kRaw, 2, 2, 32, 0x10, {9, 9, 9, 9, 7}, 3));  // after a 3-byte id field
  EXPECT_EQ(At(raw, 1, 0), (Pixel{7, 0, 0, 0}));
  EXPECT_EQ(At(raw, 1, 1), (Pixel{0, 0, 0, 0}));
  // A zero packet byte is a raw packet of one pixel: the rows still fill.
  TargaImage packed = Decode(Targa(kRunLength, 3, 2, 24, 0x10, {0x81, 5, 5, 5}));
  EXPECT_EQ(At(packed, 1, 0), (Pixel{5, 5, 5, 255}));
  EXPECT_EQ(At(packed, 2, 1), (Pixel{0, 0, 0, 255}));
  TargaImage cut = Decode({0, 0, kRaw, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3});
  EXPECT_EQ(cut.width, 3);
  EXPECT_TRUE(cut.Empty()) << "height read as 0";
}

TEST(TargaTest, SizeLimit) {
  TargaImage image;
  for (auto bytes : {Targa(kRunLength, 1025, 1024, 32, 0, {}), Targa(kRaw, 65535, 65535, 32, 0, {})}) {
    EXPECT_EQ(DecodeTarga(bytes.data(), bytes.size(), image), kTargaFailure) << bytes[12] + 256 * bytes[13];
    EXPECT_TRUE(image.Empty());
  }
  auto largest = Targa(kRunLength, 1024, 1024, 32, 0x10, {0xFF, 1, 2, 3, 4});
  ASSERT_EQ(DecodeTarga(largest.data(), largest.size(), image), 0);
  EXPECT_EQ(At(image, 127, 0), (Pixel{1, 2, 3, 4}));
  EXPECT_EQ(At(image, 128, 0), (Pixel{0, 0, 0, 0}));
}


}  // namespace
}  // namespace tw
