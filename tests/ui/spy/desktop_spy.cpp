// A hook library that Wine loads into the process owning the desktop window,
// so that a test sees what the program sends there: each WM_SETTINGCHANGE
// that has the Today screen reload its items is posted on to the test's
// listener window.
#include <windows.h>

extern "C" __declspec(dllexport) LRESULT CALLBACK DesktopSpyHook(int code, WPARAM wParam, LPARAM lParam) {
  const auto* sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && sent->message == WM_SETTINGCHANGE && sent->wParam == 0xF2)
    if (HWND listener = FindWindowW(L"TwTestDesktopListener", nullptr))
      PostMessageW(listener, WM_APP, sent->wParam, 0);
  return CallNextHookEx(nullptr, code, wParam, lParam);
}
