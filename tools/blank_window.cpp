// The start-up baseline: a program that opens one blank window of the main
// window's size and position and does nothing else. Its class and title are
// strings 3 and 1 of its resources, as in the settings program.
#include <windows.h>

namespace {

LRESULT CALLBACK BlankProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT: {
      PAINTSTRUCT paint;
      HDC dc = BeginPaint(window, &paint);
      FillRect(dc, &paint.rcPaint, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
      EndPaint(window, &paint);
      return 0;
    }
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

int Scale(int value, int dpi) { return (value * dpi + 48) / 96; }

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int show) {
  wchar_t className[256];
  wchar_t title[256];
  LoadStringW(instance, 3, className, 256);
  LoadStringW(instance, 1, title, 256);

  WNDCLASSW windowClass{};
  windowClass.style = CS_HREDRAW | CS_VREDRAW;
  windowClass.lpfnWndProc = BlankProc;
  windowClass.hInstance = instance;
  windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  windowClass.lpszClassName = className;
  if (!RegisterClassW(&windowClass)) return 1;

  HDC screen = GetDC(nullptr);
  int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  // The device's main window: 240 x 268 below a 26-unit title strip.
  HWND window = CreateWindowExW(0, className, title, WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS, 0, Scale(26, dpi),
                                Scale(240, dpi), Scale(268, dpi), nullptr, nullptr, instance, nullptr);
  if (!window) return 1;
  ShowWindow(window, show);
  UpdateWindow(window);

  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}
