// The screenshot helper of the run script: what a window shows on the screen
// comes back in the captured pixels and in the .bmp file it writes.
#include <gtest/gtest.h>

#include <string>

#include "tools/screen_capture.h"

namespace tw::tools {
namespace {

constexpr COLORREF kLeft = RGB(200, 30, 40), kRight = RGB(10, 120, 250), kBottom = RGB(240, 230, 20);
constexpr int kX = 37, kY = 53, kWidth = 30, kHeight = 14;  // rows of 90 bytes are padded to 92
constexpr int kBand = 4;                                    // bottom rows, so that upside down shows

LRESULT CALLBACK TwoColourProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_PAINT) return DefWindowProcW(window, message, wParam, lParam);
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(window, &paint);
  auto fill = [dc](RECT rect, COLORREF colour) {
    HBRUSH brush = CreateSolidBrush(colour);
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
  };
  fill({0, 0, kWidth / 2, kHeight - kBand}, kLeft);
  fill({kWidth / 2, 0, kWidth, kHeight - kBand}, kRight);
  fill({0, kHeight - kBand, kWidth, kHeight}, kBottom);
  EndPaint(window, &paint);
  return 0;
}

std::string Show(COLORREF c) {
  return std::to_string(GetRValue(c)) + "," + std::to_string(GetGValue(c)) + "," + std::to_string(GetBValue(c));
}

COLORREF PixelAt(const Capture& capture, int x, int y) {
  const std::uint8_t* p = &capture.rows[(capture.height - 1 - y) * CaptureStride(capture.width) + x * 3];
  return RGB(p[2], p[1], p[0]);
}

// A borderless window: left and right halves of two colours over a band of a third.
TEST(ScreenCaptureTest, CapturesTheScreenAndWritesItAsABitmapFile) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = TwoColourProc;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"TwScreenCaptureTest";
  RegisterClassW(&windowClass);
  HWND window = CreateWindowExW(WS_EX_TOPMOST, windowClass.lpszClassName, L"", WS_POPUP | WS_VISIBLE, kX, kY, kWidth,
                                kHeight, nullptr, nullptr, windowClass.hInstance, nullptr);
  ASSERT_NE(window, nullptr);
  UpdateWindow(window);
  // Wine hands the window's pixels to the X server shortly after the paint.
  for (int i = 0; i < 20; ++i) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    Sleep(10);
  }
  Capture capture, empty;
  bool captured = CaptureScreen({kX, kY, kX + kWidth, kY + kHeight}, capture);
  DestroyWindow(window);
  ASSERT_TRUE(captured);
  EXPECT_FALSE(CaptureScreen({kX, kY, kX, kY + kHeight}, empty));
  ASSERT_EQ(capture.width, kWidth);
  ASSERT_EQ(capture.height, kHeight);
  EXPECT_EQ(capture.rows.size(), static_cast<size_t>(92 * kHeight));
  EXPECT_EQ(Show(PixelAt(capture, kWidth / 2 - 1, kHeight - kBand - 1)), Show(kLeft)) << "end of the left half";
  EXPECT_EQ(Show(PixelAt(capture, kWidth / 2, 0)), Show(kRight)) << "top of the right half";

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
  EXPECT_EQ(Show(GetPixel(dc, 0, 0)), Show(kLeft));
  EXPECT_EQ(Show(GetPixel(dc, kWidth - 1, 0)), Show(kRight));
  EXPECT_EQ(Show(GetPixel(dc, kWidth - 1, kHeight - 1)), Show(kBottom));
  SelectObject(dc, old);
  DeleteDC(dc);
  DeleteObject(bitmap);
}

}  // namespace
}  // namespace tw::tools
