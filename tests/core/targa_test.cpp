#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "data/targa.h"
#include "tests/support/test_platform.h"

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

TEST(TargaTest, RowOrderComesFromBitFourOnly) {
  // Two rows of one pixel: stored first is blue 10, second blue 20.
  for (auto [descriptor, topBlue] : {std::pair{0x00, 20}, {0x20, 20}, {0x10, 10}, {0x30, 10}, {0x08, 20}, {0x18, 10}}) {
    TargaImage image = Decode(Targa(kRaw, 1, 2, 24, descriptor, {10, 0, 0, 20, 0, 0}));
    EXPECT_EQ(At(image, 0, 0)[0], topBlue) << "descriptor " << descriptor;
  }
}

TEST(TargaTest, AnyDepthButThirtyTwoIsThreeOpaqueBytes) {
  for (std::uint8_t depth : {24, 16, 8, 0, 33}) {
    TargaImage image = Decode(Targa(kRaw, 2, 1, depth, 0x10, {1, 2, 3, 4, 5, 6}, depth));
    EXPECT_EQ(At(image, 1, 0), (Pixel{4, 5, 6, 255})) << "depth " << int(depth) << ", its size as the id field";
  }
}

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

TEST(TargaTest, RefusesOtherKindsAndEmptiesTheImage) {
  TargaImage image = Decode(Targa(kRaw, 1, 1, 24, 0, {1, 2, 3}));
  for (std::uint8_t type : {0, 1, 3, 9, 11, 255}) {
    auto bytes = Targa(type, 1, 1, 24, 0, {1, 2, 3});
    EXPECT_EQ(DecodeTarga(bytes.data(), bytes.size(), image), kTargaFailure) << "type " << int(type);
    EXPECT_TRUE(image.Empty());
  }
  auto mapped = Targa(kRaw, 1, 1, 24, 0, {1, 2, 3});
  mapped[1] = 1;  // a colour map
  EXPECT_EQ(DecodeTarga(mapped.data(), mapped.size(), image), kTargaFailure);
  EXPECT_EQ(DecodeTarga(nullptr, 0, image), kTargaFailure) << "nothing reads as type 0";
}

TEST(TargaTest, RunLengthPacketsMayOverrunTheirRow) {
  // Bottom-up 3 x 2: the first stored row is the lower one, B C D; the second
  // (upper) row is a run of five A that goes on over the start of the lower row.
  TargaImage image = Decode(Targa(kRunLength, 3, 2, 24, 0x00,
                                  {0x02, 'B', 0, 0, 'C', 0, 0, 'D', 0, 0, 0x84, 'A', 0, 0}));
  const char expected[2][3] = {{'A', 'A', 'A'}, {'A', 'A', 'D'}};
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 3; ++x) EXPECT_EQ(At(image, x, y)[0], expected[y][x]) << x << ", " << y;

  // Packets running past the last byte of the planes are dropped there.
  TargaImage tail = Decode(Targa(kRunLength, 2, 2, 32, 0x10, {0x81, 1, 1, 1, 1, 0xFF, 2, 2, 2, 2, 0x7F}));
  EXPECT_EQ(At(tail, 1, 1), (Pixel{2, 2, 2, 2}));
  TargaImage rawTail = Decode(Targa(kRunLength, 1, 1, 32, 0x10, {0x7F, 3, 3, 3, 3}));
  EXPECT_EQ(At(rawTail, 0, 0), (Pixel{3, 3, 3, 3}));
}

TEST(TargaTest, MissingBytesReadAsZeros) {
  TargaImage raw = Decode(Targa(kRaw, 2, 2, 32, 0x10, {9, 9, 9, 9, 7}));
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

class TargaFileTest : public test::PlatformTest {};

TEST_F(TargaFileTest, ReadsThroughTheFileSystem) {
  std::u16string path = Folder() + u"\\icon.tga";
  auto bytes = Targa(kRaw, 1, 1, 32, 0, {4, 3, 2, 1});
  ASSERT_TRUE(files().WriteAll(path, bytes.data(), bytes.size()));
  TargaImage image;
  ASSERT_EQ(ReadTargaFile(files(), path, image), 0);
  EXPECT_EQ(At(image, 0, 0), (Pixel{4, 3, 2, 1}));
  EXPECT_EQ(ReadTargaFile(files(), Folder() + u"\\missing.tga", image), kTargaFailure);
  EXPECT_TRUE(image.Empty());
}

}  // namespace
}  // namespace tw
