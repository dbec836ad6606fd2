// Pictures and a drawing surface for the image tests.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace tw::test {

// A top-down 32-bit Targa file; pixels given as 0xAARRGGBB, row after row.
inline std::vector<std::uint8_t> TargaFile(int width, int height, const std::vector<std::uint32_t>& argb) {
  std::vector<std::uint8_t> bytes = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, std::uint8_t(width), 0,
                                     std::uint8_t(height), 0, 32, 0x18};
  for (std::uint32_t p : argb) bytes.insert(bytes.end(), {std::uint8_t(p), std::uint8_t(p >> 8), std::uint8_t(p >> 16), std::uint8_t(p >> 24)});
  return bytes;
}

// A bottom-up 24-bit .bmp file of one colour (red in the low byte), with
// the top-left pixel in another.
inline std::vector<std::uint8_t> BitmapFile(int side, COLORREF fill, COLORREF topLeft) {
  int rowBytes = (side * 3 + 3) & ~3;
  std::uint32_t size = 54 + rowBytes * side;
  std::vector<std::uint8_t> bytes(size, 0);
  auto put32 = [&](int at, std::uint32_t v) { for (int i = 0; i < 4; ++i) bytes[at + i] = std::uint8_t(v >> (8 * i)); };
  bytes[0] = 'B';
  bytes[1] = 'M';
  put32(2, size);
  put32(10, 54);
  put32(14, 40);
  put32(18, side);
  put32(22, side);
  bytes[26] = 1;
  bytes[28] = 24;
  for (int row = 0; row < side; ++row)
    for (int x = 0; x < side; ++x) {
      COLORREF c = (row == side - 1 && x == 0) ? topLeft : fill;
      std::uint8_t* p = &bytes[54 + row * rowBytes + x * 3];
      p[0] = GetBValue(c);
      p[1] = GetGValue(c);
      p[2] = GetRValue(c);
    }
  return bytes;
}

// A memory context over a 32-bit section, filled with one colour.
class Canvas {
 public:
  Canvas(int width, int height, COLORREF fill) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    dc_ = CreateCompatibleDC(nullptr);
    bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    old_ = SelectObject(dc_, bitmap_);
    RECT all = {0, 0, width, height};
    HBRUSH brush = CreateSolidBrush(fill);
    FillRect(dc_, &all, brush);
    DeleteObject(brush);
  }
  ~Canvas() {
    SelectObject(dc_, old_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
  }
  HDC dc() const { return dc_; }
  COLORREF Pixel(int x, int y) const { return GetPixel(dc_, x, y); }

 private:
  HDC dc_;
  HBITMAP bitmap_;
  HGDIOBJ old_;
};

}  // namespace tw::test
