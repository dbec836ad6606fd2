// The screenshot helper of the run script. What the screen shows comes back
// the right way up in the pixel tests of the icon strip and the scroller;
// here, the file it writes: padded rows, stored bottom-up, read back by the
// system as drawn.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tools/screen_capture.h"

namespace tw::tools {
namespace {

TEST(ScreenCaptureTest, WritesABitmapFileTheSystemReadsBack) {
  Capture empty;
  EXPECT_FALSE(CaptureScreen({40, 40, 40, 60}, empty)) << "an empty area";

  // Three pixels of three bytes make rows of 9 bytes, padded to 12.
  Capture capture{3, 2, std::vector<std::uint8_t>(CaptureStride(3) * 2)};
  ASSERT_EQ(capture.rows.size(), 24u);
  const std::uint8_t bottomLeft[] = {3, 2, 1}, topRight[] = {50, 100, 200};  // blue, green, red
  std::copy(bottomLeft, bottomLeft + 3, capture.rows.begin());
  std::copy(topRight, topRight + 3, capture.rows.begin() + 12 + 6);
  std::vector<std::uint8_t> bytes = EncodeBmp(capture);
  EXPECT_EQ(bytes[2] | bytes[3] << 8 | bytes[4] << 16, static_cast<int>(bytes.size())) << "the size in its header";

  wchar_t folder[MAX_PATH];
  GetTempPathW(MAX_PATH, folder);
  std::wstring path = std::wstring(folder) + L"tw_screen_capture_test.bmp";
  ASSERT_TRUE(WriteBmp(path, capture));
  auto bitmap = static_cast<HBITMAP>(LoadImageW(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE));
  DeleteFileW(path.c_str());
  ASSERT_NE(bitmap, nullptr);
  HDC dc = CreateCompatibleDC(nullptr);
  HGDIOBJ old = SelectObject(dc, bitmap);
  EXPECT_EQ(GetPixel(dc, 0, 1), RGB(1, 2, 3));
  EXPECT_EQ(GetPixel(dc, 2, 0), RGB(200, 100, 50));
  EXPECT_EQ(GetPixel(dc, 1, 0), RGB(0, 0, 0));
  SelectObject(dc, old);
  DeleteDC(dc);
  DeleteObject(bitmap);
}

}  // namespace
}  // namespace tw::tools
