#include <gtest/gtest.h>

#include <vector>

#include "data/alpha_blend.h"

namespace tw {
namespace {

// Red tells which source pixel landed; green, blue and alpha are given.
TargaImage MakeImage(int width, int height, std::uint8_t alpha) {
  TargaImage image;
  image.width = width;
  image.height = height;
  std::size_t n = image.PixelCount();
  for (auto* plane : {&image.red, &image.green, &image.blue, &image.alpha}) plane->reset(new std::uint8_t[n]);
  for (std::size_t i = 0; i < n; ++i) {
    image.red[i] = static_cast<std::uint8_t>(i);
    image.green[i] = 200;
    image.blue[i] = static_cast<std::uint8_t>(i * 11);
    image.alpha[i] = alpha ? alpha : static_cast<std::uint8_t>(i * 37);
  }
  return image;
}

// A bottom-up 24-bit surface as a device-independent section lays it out.
struct TestSurface {
  TestSurface(int width, int height, std::uint8_t fill) : bytes(width * height * 3, fill) {
    surface = {bytes.data() + (height - 1) * width * 3, -width * 3, width, height};
  }
  int Red(int x, int y) const { return surface.Row(y)[x * 3 + 2]; }

  std::vector<std::uint8_t> bytes;
  BgrSurface surface;
};

TEST(AlphaBlendTest, DefaultsAndClipsTheDrawnArea) {
  TargaImage image = MakeImage(6, 4, 255);
  auto measure = [&](int width, int height, int clipWidth, int clipHeight) {
    DrawExtent e = MeasureDraw(image, width, height, clipWidth, clipHeight);
    return std::vector<int>{e.width, e.height, e.clipWidth, e.clipHeight};
  };
  EXPECT_EQ(measure(-1, -1, -1, -1), (std::vector<int>{6, 4, 6, 4}));
  EXPECT_EQ(measure(3, -1, -1, 2), (std::vector<int>{3, 4, 3, 2}));
  EXPECT_EQ(measure(10, 10, 5, -1), (std::vector<int>{10, 10, 5, 4}));
}

TEST(AlphaBlendTest, BlendsTheClippedAreaFromTheSourceOffset) {
  TargaImage image = MakeImage(6, 4, 255);
  TestSurface target(4, 3, 7);
  BlendImage(image, target.surface, 1, 2, 3, 2);
  // (i, j) takes source index i + (j + 2) * 6 + 1; the rest stays 7.
  const int corner[3][4] = {{13, 14, 15, 7}, {19, 20, 21, 7}, {7, 7, 7, 7}};
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 4; ++x) EXPECT_EQ(target.Red(x, y), corner[y][x]) << x << ", " << y;

  // Indexes outside the planes are skipped; one past a row's end is the next row's start.
  TargaImage small = MakeImage(3, 2, 255);
  TestSurface after(3, 2, 7), before(3, 2, 7);
  BlendImage(small, after.surface, 1, 1, 3, 2);
  BlendImage(small, before.surface, -2, 0, 3, 2);
  EXPECT_EQ((std::vector<int>{after.Red(0, 0), after.Red(1, 0), after.Red(2, 0), after.Red(0, 1)}),
            (std::vector<int>{4, 5, 7, 7}));
  EXPECT_EQ((std::vector<int>{before.Red(0, 0), before.Red(1, 0), before.Red(2, 0), before.Red(0, 1)}),
            (std::vector<int>{7, 7, 0, 1}));
}

// Rows long enough for the block-wise loops and their tails, with every
// pixel checked against the one-channel rule.
TEST(AlphaBlendTest, WideRowsAndTintFollowTheChannelRule) {
  const int width = 37, height = 2;
  TargaImage image = MakeImage(width, height, 0);
  TestSurface target(width, height, 0);
  for (std::size_t i = 0; i < target.bytes.size(); ++i) target.bytes[i] = static_cast<std::uint8_t>(i * 29);
  std::vector<std::uint8_t> before = target.bytes;
  BlendImage(image, target.surface, 0, 0, width, height);
  TintSurface(target.surface, 0x00336699, 77);
  const std::uint8_t tint[3] = {0x33, 0x66, 0x99};  // blue, green, red
  const std::uint8_t* source[3] = {image.blue.get(), image.green.get(), image.red.get()};
  int wrong = 0;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      for (int c = 0; c < 3; ++c) {
        std::size_t i = static_cast<std::size_t>(y) * width + x;
        std::size_t at = static_cast<std::size_t>(target.surface.Row(y) - target.bytes.data()) + x * 3 + c;
        std::uint8_t blended = BlendChannel(source[c][i], before[at], image.alpha[i]);
        if (target.bytes[at] != BlendChannel(tint[c], blended, 77) && ++wrong <= 3)
          ADD_FAILURE() << "pixel " << x << ", " << y << " channel " << c;
      }
  EXPECT_EQ(wrong, 0);

  TestSurface kept(2, 2, 100), solid(1, 1, 100);
  TintSurface(kept.surface, 0x00FFFFFF, 0);
  TintSurface(solid.surface, 0x00FF0000, 255);  // blue
  EXPECT_EQ(kept.bytes, std::vector<std::uint8_t>(12, 100));
  EXPECT_EQ(solid.bytes, (std::vector<std::uint8_t>{255, 0, 0}));
}

}  // namespace
}  // namespace tw
