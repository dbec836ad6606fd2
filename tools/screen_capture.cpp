#include "tools/screen_capture.h"

#include <cstring>

namespace tw::tools {

namespace {

void Put16(std::vector<std::uint8_t>& out, std::uint16_t value) {
  out.push_back(static_cast<std::uint8_t>(value));
  out.push_back(static_cast<std::uint8_t>(value >> 8));
}

void Put32(std::vector<std::uint8_t>& out, std::uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8) out.push_back(static_cast<std::uint8_t>(value >> shift));
}

}  // namespace

int CaptureStride(int width) { return (width * 3 + 3) & ~3; }

bool CaptureScreen(const RECT& rect, Capture& capture) {
  int width = rect.right - rect.left;
  int height = rect.bottom - rect.top;
  if (width <= 0 || height <= 0) return false;

  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;  // bottom-up, as the file stores it
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  info.bmiHeader.biCompression = BI_RGB;

  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  void* bits = nullptr;
  HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  bool copied = false;
  if (memory && bitmap) {
    HGDIOBJ old = SelectObject(memory, bitmap);
    copied = BitBlt(memory, 0, 0, width, height, screen, rect.left, rect.top, SRCCOPY) != 0;
    GdiFlush();
    SelectObject(memory, old);
  }
  if (copied) {
    capture.width = width;
    capture.height = height;
    const auto* first = static_cast<const std::uint8_t*>(bits);
    capture.rows.assign(first, first + static_cast<size_t>(CaptureStride(width)) * height);
  }
  if (bitmap) DeleteObject(bitmap);
  if (memory) DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return copied;
}

std::vector<std::uint8_t> EncodeBmp(const Capture& capture) {
  std::uint32_t pixelBytes = static_cast<std::uint32_t>(capture.rows.size());
  std::vector<std::uint8_t> out;
  out.reserve(54 + pixelBytes);
  out.push_back('B');
  out.push_back('M');
  Put32(out, 54 + pixelBytes);
  Put32(out, 0);
  Put32(out, 54);
  Put32(out, 40);
  Put32(out, static_cast<std::uint32_t>(capture.width));
  Put32(out, static_cast<std::uint32_t>(capture.height));
  Put16(out, 1);
  Put16(out, 24);
  Put32(out, BI_RGB);
  Put32(out, pixelBytes);
  Put32(out, 3780);  // 96 dpi in pixels per metre
  Put32(out, 3780);
  Put32(out, 0);
  Put32(out, 0);
  out.insert(out.end(), capture.rows.begin(), capture.rows.end());
  return out;
}

bool WriteBmp(const std::wstring& path, const Capture& capture) {
  std::vector<std::uint8_t> bytes = EncodeBmp(capture);
  HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  bool ok = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
            written == bytes.size();
  CloseHandle(file);
  return ok;
}

}  // namespace tw::tools
