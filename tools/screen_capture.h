// Copies part of the screen into a 24-bit bottom-up bitmap file, the way a
// screenshot of the device screen is taken from outside the program.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tw::tools {

struct Capture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> rows;  // bottom-up, blue-green-red, rows padded to 4 bytes
};

int CaptureStride(int width);

// Reads what the screen shows in rect; false when the rect is empty or GDI fails.
bool CaptureScreen(const RECT& rect, Capture& capture);

// The whole .bmp file: file header, 40-byte info header, pixels.
std::vector<std::uint8_t> EncodeBmp(const Capture& capture);
bool WriteBmp(const std::wstring& path, const Capture& capture);

}  // namespace tw::tools
