#include <gtest/gtest.h>

#include "data/alpha_blend.h"
#include "platform/win32/skin_image.h"
#include "tests/support/test_platform.h"
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

class SkinImageTest : public test::PlatformTest {
 protected:
  void Write(std::u16string_view name, const std::vector<std::uint8_t>& bytes) {
    ASSERT_TRUE(files().WriteAll(Folder() + u"\\" + std::u16string(name), bytes.data(), bytes.size()));
  }
  HMODULE Module() const { return GetModuleHandleW(nullptr); }
};

TEST_F(SkinImageTest, BlendsTargaPlanesOverTheScreen) {
  // Three columns, so the captured section's rows are rounded up to four.
  Write(u"pic.tga", TargaFile(3, 2, {0xFFFF0000, 0x000000FF, 0x80FFFFFF, 0xFF00FF00, 0xFF00FF00, 0xFF00FF00}));
  SkinImage image;
  ASSERT_EQ(LoadSkinImage(image, Folder(), u"pic", Module(), -1, -1, kIconTransparent, false), 1);
  ASSERT_FALSE(image.planes.Empty());

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
  EXPECT_COLOR(clipped.Pixel(0, 1), kGrey);

  Canvas shifted(4, 3, kGrey);
  DrawSkinImage(image, shifted.dc(), 0, 0, -1, -1, 0, 1);
  EXPECT_COLOR(shifted.Pixel(0, 0), RGB(0, 255, 0)) << "row 1 of the image";
  EXPECT_COLOR(shifted.Pixel(0, 1), kGrey) << "past the planes";
}

TEST_F(SkinImageTest, DrawsBitmapsWithoutTheirTransparentColour) {
  Write(u"pic.bmp", BitmapFile(2, RGB(10, 20, 30), kIconTransparent));
  SkinImage image;
  ASSERT_EQ(LoadSkinImage(image, Folder(), u"pic", Module(), -1, -1, kIconTransparent, false), 1);
  EXPECT_EQ(image.bitmapWidth, 2);
  EXPECT_EQ(image.bitmapHeight, 2);

  Canvas canvas(5, 5, kGrey);
  EXPECT_EQ(DrawSkinImage(image, canvas.dc(), 1, 1, 1, 1), 1);
  EXPECT_COLOR(canvas.Pixel(1, 1), kGrey) << "the transparent colour";
  EXPECT_COLOR(canvas.Pixel(2, 1), RGB(10, 20, 30));
  EXPECT_COLOR(canvas.Pixel(2, 2), RGB(10, 20, 30)) << "the bitmap's own size, not the width given";
  EXPECT_COLOR(canvas.Pixel(3, 3), kGrey);

  SkinImage nothing;
  EXPECT_EQ(DrawSkinImage(nothing, canvas.dc(), 0, 0), 0);
}

TEST_F(SkinImageTest, TintsARectangle) {
  Canvas canvas(6, 4, kGrey);
  EXPECT_EQ(TintRect(canvas.dc(), 1, 1, 3, 2, RGB(255, 0, 0), 255), 1);
  EXPECT_COLOR(canvas.Pixel(1, 1), RGB(255, 0, 0));
  EXPECT_COLOR(canvas.Pixel(3, 2), RGB(255, 0, 0));
  EXPECT_COLOR(canvas.Pixel(4, 1), kGrey);
  EXPECT_COLOR(canvas.Pixel(1, 3), kGrey);
  TintRect(canvas.dc(), 5, 0, 1, 4, RGB(0, 0, 255), 128);
  EXPECT_COLOR(canvas.Pixel(5, 3), Blended(RGB(0, 0, 255), kGrey, 128));
}

// Which source each combination of files and resources ends up loading from:
// told apart by size (tga 1, bmp 3, _high 4, Targa resource 2 as planes,
// bitmap resource 2 as a bitmap).
TEST_F(SkinImageTest, LoadsInTheOrderOfPreference) {
  struct Case {
    const char* what;
    bool tga, bmp, high, allowHigh, useFolder;
    int targaId, bitmapId;
    int planesWidth, bitmapWidth;
  } cases[] = {
      {"tga first", true, true, true, true, true, kTargaResource, kBitmapResource, 1, -1},
      {"bmp before _high", false, true, true, true, true, kTargaResource, kBitmapResource, 0, 3},
      {"_high when allowed", false, false, true, true, true, kTargaResource, kBitmapResource, 0, 4},
      {"_high not allowed", false, false, true, false, true, kTargaResource, kBitmapResource, 2, -1},
      {"no folder, no files", true, true, true, true, false, kTargaResource, kBitmapResource, 2, -1},
      {"bitmap resource", false, false, false, false, true, -1, kBitmapResource, 0, 2},
      {"missing Targa resource", false, false, false, false, true, 395, kBitmapResource, 0, 2},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    for (auto name : {u"\\p.tga", u"\\p.bmp", u"\\p_high.bmp"}) files().Delete(Folder() + name);
    if (c.tga) Write(u"p.tga", TargaFile(1, 1, {0xFF000000}));
    if (c.bmp) Write(u"p.bmp", BitmapFile(3, RGB(1, 2, 3), RGB(1, 2, 3)));
    if (c.high) Write(u"p_high.bmp", BitmapFile(4, RGB(1, 2, 3), RGB(1, 2, 3)));
    SkinImage image;
    EXPECT_EQ(LoadSkinImage(image, c.useFolder ? Folder() : u"", u"p", Module(), c.targaId, c.bitmapId,
                            kArrowTransparent, c.allowHigh), 1);
    EXPECT_EQ(image.planes.width, c.planesWidth);
    EXPECT_EQ(image.bitmapWidth, c.bitmapWidth);
    EXPECT_EQ(image.transparentColor, kArrowTransparent);
  }
}

TEST_F(SkinImageTest, BrokenFilesFallThrough) {
  std::vector<std::uint8_t> notTarga = TargaFile(1, 1, {0});
  notTarga[2] = 3;  // grey-scale: refused
  Write(u"p.tga", notTarga);
  Write(u"p.bmp", {'B', 'M', 0, 0});
  SkinImage image;
  ASSERT_EQ(LoadSkinImage(image, Folder(), u"p", Module(), kTargaResource, -1, kIconTransparent, true), 1);
  ASSERT_EQ(image.planes.width, 2);
  EXPECT_EQ((std::vector<int>{image.planes.red[3], image.planes.green[3], image.planes.blue[3], image.planes.alpha[3]}),
            (std::vector<int>{10, 20, 30, 127}));

  EXPECT_EQ(LoadSkinImage(image, Folder(), u"absent", Module(), -1, -1, kIconTransparent, true), 0);
  EXPECT_TRUE(image.Empty()) << "the earlier image is released";
  EXPECT_EQ(image.bitmapWidth, -1);
}

}  // namespace
}  // namespace tw
