// Pictures and a drawing surface for the image tests.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "data/win32/skin_image.h"
#include "tests/support/test_platform.h"
#include "tools/screen_capture.h"

namespace tw::test {

// A top-down 32-bit Targa file; pixels given as 0xAARRGGBB, row after row.
inline std::vector<std::uint8_t> TargaFile(int width, int height, const std::vector<std::uint32_t>& argb) {
  std::vector<std::uint8_t> bytes = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, std::uint8_t(width), 0,
                                     std::uint8_t(height), 0, 32, 0x18};
  for (std::uint32_t p : argb) bytes.insert(bytes.end(), {std::uint8_t(p), std::uint8_t(p >> 8), std::uint8_t(p >> 16), std::uint8_t(p >> 24)});
  return bytes;
}

// A square 24-bit .bmp file of one colour, with the top-left pixel in another.
inline std::vector<std::uint8_t> BitmapFile(int side, COLORREF fill, COLORREF topLeft) {
  tools::Capture capture{side, side, std::vector<std::uint8_t>(tools::CaptureStride(side) * side)};
  for (int row = 0; row < side; ++row)  // bottom-up: the last row is the top one
    for (int x = 0; x < side; ++x) {
      COLORREF c = row == side - 1 && x == 0 ? topLeft : fill;
      std::uint8_t* pixel = &capture.rows[row * tools::CaptureStride(side) + 3 * x];
      pixel[0] = GetBValue(c);
      pixel[1] = GetGValue(c);
      pixel[2] = GetRValue(c);
    }
  return tools::EncodeBmp(capture);
}

// An off-screen surface filled with one colour.
class Canvas : public OffscreenSurface {
 public:
  Canvas(int width, int height, COLORREF fill) {
    HDC screen = GetDC(nullptr);
    Create(screen, width, height);
    ReleaseDC(nullptr, screen);
    RECT all = {0, 0, width, height};
    HBRUSH brush = CreateSolidBrush(fill);
    FillRect(dc(), &all, brush);
    DeleteObject(brush);
  }
  COLORREF Pixel(int x, int y) const { return GetPixel(dc(), x, y); }
};

// Image files written into the test's folder; resources from the test program.
class ImageTest : public PlatformTest {
 protected:
  void Write(std::u16string_view name, const std::vector<std::uint8_t>& bytes) {
    ASSERT_TRUE(files().WriteAll(Folder() + u"\\" + std::u16string(name), bytes.data(), bytes.size()));
  }
  HMODULE Module() const { return GetModuleHandleW(nullptr); }
};

}  // namespace tw::test
