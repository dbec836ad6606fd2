// Skin images: where each comes from, and how planes, bitmaps and tints are
// drawn over what is on the screen.
#include <gtest/gtest.h>

#include <string>

#include "data/alpha_blend.h"
#include "data/win32/skin_image.h"
#include "tests/ui/image_test_support.h"

namespace tw {
namespace {

using test::BitmapFile;
using test::Canvas;
using test::TargaFile;

constexpr COLORREF kGrey = RGB(100, 100, 100);
constexpr int kTargaResource = 396, kBitmapResource = 391;  // tests/ui/image_test.rc

std::string Rgb(COLORREF c) {
  return std::to_string(GetRValue(c)) + "," + std::to_string(GetGValue(c)) + "," + std::to_string(GetBValue(c));
}
#define EXPECT_COLOR(actual, expected) EXPECT_EQ(Rgb(actual), Rgb(expected))

COLORREF Blended(COLORREF source, COLORREF destination, int alpha) {
  auto a = static_cast<std::uint8_t>(alpha);
  return RGB(BlendChannel(GetRValue(source), GetRValue(destination), a),
             BlendChannel(GetGValue(source), GetGValue(destination), a),
             BlendChannel(GetBValue(source), GetBValue(destination), a));
}

using SkinImageTest = test::ImageTest;

TEST_F(SkinImageTest, BlendsTargaPlanesOverTheScreen) {
  // Three columns, so the captured section's rows are rounded up to four.
  Write(u"pic.tga", TargaFile(3, 2, {0xFFFF0000, 0x000000FF, 0x80FFFFFF, 0xFF00FF00, 0xFF00FF00, 0xFF00FF00}));
  SkinImage image;
  ASSERT_EQ(LoadSkinImage(image, Folder(), u"pic", Module(), -1, -1, kIconTransparent, false), 1);

  Canvas canvas(10, 6, kGrey);
  EXPECT_EQ(DrawSkinImage(image, canvas.dc(), 4, 2), 1);
  EXPECT_COLOR(canvas.Pixel(4, 2), RGB(255, 0, 0));
  EXPECT_COLOR(canvas.Pixel(5, 2), kGrey) << "alpha 0";
  EXPECT_COLOR(canvas.Pixel(6, 2), Blended(RGB(255, 255, 255), kGrey, 0x80));
  EXPECT_COLOR(canvas.Pixel(6, 3), RGB(0, 255, 0));
  for (auto [x, y] : {std::pair{3, 2}, {7, 2}, {4, 1}, {4, 4}}) EXPECT_COLOR(canvas.Pixel(x, y), kGrey) << x << "," << y;

  Canvas clipped(4, 3, kGrey);
  DrawSkinImage(image, clipped.dc(), 0, 0, -1, -1, 0, 0, 1, 1);
  EXPECT_COLOR(clipped.Pixel(0, 0), RGB(255, 0, 0));
  EXPECT_COLOR(clipped.Pixel(0, 1), kGrey) << "clipped";

  Canvas shifted(4, 3, kGrey);
  DrawSkinImage(image, shifted.dc(), 0, 0, -1, -1, 0, 1);
  EXPECT_COLOR(shifted.Pixel(0, 0), RGB(0, 255, 0)) << "row 1 of the image";
  EXPECT_COLOR(shifted.Pixel(0, 1), kGrey) << "past the planes";
}

TEST_F(SkinImageTest, DrawsBitmapsWithoutTheirTransparentColourAndTints) {
  Write(u"pic.bmp", BitmapFile(2, RGB(10, 20, 30), kIconTransparent));
  SkinImage image;
  ASSERT_EQ(LoadSkinImage(image, Folder(), u"pic", Module(), -1, -1, kIconTransparent, false), 1);
  Canvas canvas(6, 5, kGrey);
  EXPECT_EQ(DrawSkinImage(image, canvas.dc(), 1, 1, 1, 1), 1);
  EXPECT_COLOR(canvas.Pixel(1, 1), kGrey) << "the transparent colour";
  EXPECT_COLOR(canvas.Pixel(2, 1), RGB(10, 20, 30));
  EXPECT_COLOR(canvas.Pixel(2, 2), RGB(10, 20, 30)) << "the bitmap's own size, not the width given";
  EXPECT_COLOR(canvas.Pixel(3, 3), kGrey);
  EXPECT_EQ(DrawSkinImage(SkinImage(), canvas.dc(), 0, 0), 0);

  EXPECT_EQ(TintRect(canvas.dc(), 1, 3, 3, 2, RGB(255, 0, 0), 255), 1);
  EXPECT_COLOR(canvas.Pixel(1, 3), RGB(255, 0, 0));
  EXPECT_COLOR(canvas.Pixel(3, 4), RGB(255, 0, 0));
  EXPECT_COLOR(canvas.Pixel(4, 3), kGrey);
  EXPECT_COLOR(canvas.Pixel(0, 4), kGrey);
  TintRect(canvas.dc(), 5, 0, 1, 5, RGB(0, 0, 255), 128);
  EXPECT_COLOR(canvas.Pixel(5, 4), Blended(RGB(0, 0, 255), kGrey, 128));
}

// Which source each combination of files and resources ends up loading from,
// told apart by size: tga 1, bmp 3, _high 4, the Targa resource 2 as planes,
// the bitmap resource 2 as a bitmap. One image is loaded over and over: each
// load first lets go of what it held.
TEST_F(SkinImageTest, LoadsInTheOrderOfPreference) {
  struct Case {
    const char* what;
    const char* files;  // t: .tga, b: .bmp, h: _high.bmp, x: broken .tga and .bmp
    bool allowHigh, useFolder;
    int targaId, bitmapId;
    int result, planesWidth, bitmapWidth;
  } cases[] = {
      {"tga first", "tbh", true, true, kTargaResource, kBitmapResource, 1, 1, -1},
      {"bmp before _high", "bh", true, true, kTargaResource, kBitmapResource, 1, 0, 3},
      {"_high when allowed", "h", true, true, kTargaResource, kBitmapResource, 1, 0, 4},
      {"_high not allowed", "h", false, true, kTargaResource, kBitmapResource, 1, 2, -1},
      {"no folder, no files", "tbh", true, false, kTargaResource, kBitmapResource, 1, 2, -1},
      {"bitmap resource", "", false, true, -1, kBitmapResource, 1, 0, 2},
      {"missing Targa resource", "", false, true, 395, kBitmapResource, 1, 0, 2},
      {"broken files", "x", true, true, kTargaResource, -1, 1, 2, -1},
      {"nothing anywhere", "", true, true, -1, -1, 0, 0, -1},
  };
  std::vector<std::uint8_t> greyScale = TargaFile(1, 1, {0});
  greyScale[2] = 3;
  SkinImage image;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    for (auto name : {u"\\p.tga", u"\\p.bmp", u"\\p_high.bmp"}) files().Delete(Folder() + name);
    std::string files = c.files;
    if (files.find('t') != std::string::npos) Write(u"p.tga", TargaFile(1, 1, {0xFF000000}));
    if (files.find('b') != std::string::npos) Write(u"p.bmp", BitmapFile(3, RGB(1, 2, 3), RGB(1, 2, 3)));
    if (files.find('h') != std::string::npos) Write(u"p_high.bmp", BitmapFile(4, RGB(1, 2, 3), RGB(1, 2, 3)));
    if (files.find('x') != std::string::npos) {
      Write(u"p.tga", greyScale);
      Write(u"p.bmp", {'B', 'M', 0, 0});
    }
    EXPECT_EQ(LoadSkinImage(image, c.useFolder ? Folder() : u"", u"p", Module(), c.targaId, c.bitmapId,
                            kArrowTransparent, c.allowHigh), c.result);
    EXPECT_EQ(image.planes.width, c.planesWidth);
    EXPECT_EQ(image.bitmapWidth, c.bitmapWidth);
    EXPECT_TRUE(c.result ? image.transparentColor == kArrowTransparent : image.Empty());
  }
}

}  // namespace
}  // namespace tw
