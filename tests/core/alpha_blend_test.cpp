#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "data/alpha_blend.h"

namespace tw {
namespace {

TEST(AlphaBlendTest, ChannelIsTheRoundedWeightedMean) {
  EXPECT_EQ(BlendChannel(200, 17, 0), 17) << "opacity 0 keeps the destination";
  EXPECT_EQ(BlendChannel(200, 17, 255), 200) << "opacity 255 replaces it";
  EXPECT_EQ(BlendChannel(255, 255, 255), 255);
  EXPECT_EQ(BlendChannel(255, 0, 128), 128);
  EXPECT_EQ(BlendChannel(0, 255, 128), 127);
  EXPECT_EQ(BlendChannel(1, 0, 128), 1) << "128 / 255 rounds up";
  EXPECT_EQ(BlendChannel(1, 0, 127), 0) << "127 / 255 rounds down";
  EXPECT_EQ(BlendChannel(3, 0, 170), 2) << "510 / 255 is exact";

  int wrong = 0;
  for (unsigned s = 0; s < 256; ++s)
    for (unsigned d = 0; d < 256; ++d)
      for (unsigned a = 0; a < 256; ++a) {
        unsigned exact = (s * a + d * (255 - a) + 127) / 255;
        if (BlendChannel(s, d, a) != exact && ++wrong <= 3)
          ADD_FAILURE() << "s " << s << " d " << d << " a " << a << " gives " << int(BlendChannel(s, d, a));
      }
  EXPECT_EQ(wrong, 0);
}

TargaImage MakeImage(int width, int height, std::uint8_t alpha) {
  TargaImage image;
  image.width = width;
  image.height = height;
  std::size_t n = image.PixelCount();
  for (auto* plane : {&image.red, &image.green, &image.blue, &image.alpha}) plane->reset(new std::uint8_t[n]);
  for (std::size_t i = 0; i < n; ++i) {
    image.red[i] = static_cast<std::uint8_t>(i);  // red tells which source pixel landed
    image.green[i] = 200;
    image.blue[i] = 100;
    image.alpha[i] = alpha;
  }
  return image;
}

// A bottom-up 24-bit surface as a device-independent section lays it out.
struct TestSurface {
  TestSurface(int width, int height, std::uint8_t fill) : bytes(width * height * 3, fill) {
    surface.width = width;
    surface.height = height;
    surface.stride = -width * 3;
    surface.top = bytes.data() + (height - 1) * width * 3;
  }
  int Red(int x, int y) const { return surface.Row(y)[x * 3 + 2]; }
  int Green(int x, int y) const { return surface.Row(y)[x * 3 + 1]; }

  std::vector<std::uint8_t> bytes;
  BgrSurface surface;
};

TEST(AlphaBlendTest, DefaultsAndClipsTheDrawnArea) {
  TargaImage image = MakeImage(6, 4, 255);
  DrawExtent all = MeasureDraw(image, -1, -1, -1, -1);
  EXPECT_EQ((std::vector<int>{all.width, all.height, all.clipWidth, all.clipHeight}),
            (std::vector<int>{6, 4, 6, 4}));
  DrawExtent narrow = MeasureDraw(image, 3, -1, -1, 2);
  EXPECT_EQ((std::vector<int>{narrow.width, narrow.height, narrow.clipWidth, narrow.clipHeight}),
            (std::vector<int>{3, 4, 3, 2}));
  DrawExtent wide = MeasureDraw(image, 10, 10, 5, -1);
  EXPECT_EQ((std::vector<int>{wide.width, wide.height, wide.clipWidth, wide.clipHeight}),
            (std::vector<int>{10, 10, 5, 4}));
}

TEST(AlphaBlendTest, BlendsTheClippedCornerFromTheSourceOffset) {
  TargaImage image = MakeImage(6, 4, 255);
  TestSurface target(4, 3, 7);
  BlendImage(image, target.surface, 1, 2, 3, 2);
  // (i, j) takes source index i + (j + 2) * 6 + 1.
  EXPECT_EQ(target.Red(0, 0), 13);
  EXPECT_EQ(target.Red(2, 0), 15);
  EXPECT_EQ(target.Red(0, 1), 19);
  EXPECT_EQ(target.Red(2, 1), 21);
  EXPECT_EQ(target.Green(2, 1), 200);
  EXPECT_EQ(target.Red(3, 0), 7) << "outside the clip width";
  EXPECT_EQ(target.Red(0, 2), 7) << "outside the clip height";
}

TEST(AlphaBlendTest, SkipsIndexesOutsideThePlanes) {
  TargaImage image = MakeImage(3, 2, 255);
  TestSurface target(3, 3, 7);
  BlendImage(image, target.surface, 1, 1, 3, 3);
  EXPECT_EQ(target.Red(0, 0), 4);
  EXPECT_EQ(target.Red(1, 0), 5);
  EXPECT_EQ(target.Red(2, 0), 7) << "index 6 is past the planes";
  EXPECT_EQ(target.Red(0, 1), 7);

  TestSurface before(3, 2, 7);
  BlendImage(image, before.surface, -2, 0, 3, 2);
  EXPECT_EQ(before.Red(0, 0), 7) << "negative index";
  EXPECT_EQ(before.Red(1, 0), 7);
  EXPECT_EQ(before.Red(2, 0), 0);
  EXPECT_EQ(before.Red(0, 1), 1) << "index 1: the row before continues";
}

// Rows long enough for the block-wise loops and their tails, with every
// pixel checked against the one-channel rule.
TEST(AlphaBlendTest, WideRowsFollowTheChannelRule) {
  const int width = 37, height = 2;
  TargaImage image = MakeImage(width, height, 0);
  for (std::size_t i = 0; i < image.PixelCount(); ++i) {
    image.alpha[i] = static_cast<std::uint8_t>(i * 37);
    image.blue[i] = static_cast<std::uint8_t>(i * 11);
  }
  TestSurface target(width, height, 0);
  for (std::size_t i = 0; i < target.bytes.size(); ++i) target.bytes[i] = static_cast<std::uint8_t>(i * 29);
  std::vector<std::uint8_t> before = target.bytes;
  BlendImage(image, target.surface, 0, 0, width, height);
  TintSurface(target.surface, 0x00336699, 77);
  const std::uint8_t tint[3] = {0x33, 0x66, 0x99};  // blue, green, red
  int wrong = 0;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      for (int c = 0; c < 3; ++c) {
        std::size_t i = static_cast<std::size_t>(y) * width + x;
        const std::uint8_t* source[3] = {image.blue.get(), image.green.get(), image.red.get()};
        std::size_t at = static_cast<std::size_t>(target.surface.Row(y) - target.bytes.data()) + x * 3 + c;
        std::uint8_t blended = BlendChannel(source[c][i], before[at], image.alpha[i]);
        if (target.bytes[at] != BlendChannel(tint[c], blended, 77) && ++wrong <= 3)
          ADD_FAILURE() << "pixel " << x << ", " << y << " channel " << c;
      }
  EXPECT_EQ(wrong, 0);
}

TEST(AlphaBlendTest, TintAtTheExtremes) {
  TestSurface kept(2, 2, 100);
  TintSurface(kept.surface, 0x00FFFFFF, 0);
  EXPECT_EQ(kept.bytes, std::vector<std::uint8_t>(12, 100));
  TestSurface solid(1, 1, 100);
  TintSurface(solid.surface, 0x00FF0000, 255);  // blue
  EXPECT_EQ(solid.bytes, (std::vector<std::uint8_t>{255, 0, 0}));
}

}  // namespace
}  // namespace tw
