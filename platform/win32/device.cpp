#include "platform/win32/device.h"

#include <cstdlib>
#include <cwchar>

namespace tw::device {

bool ParseScreenSize(const wchar_t* text, int& width, int& height) {
  if (text == nullptr) return false;
  wchar_t* end = nullptr;
  long w = std::wcstol(text, &end, 10);
  if (end == text || (*end != L'x' && *end != L'X')) return false;
  const wchar_t* rest = end + 1;
  long h = std::wcstol(rest, &end, 10);
  if (end == rest || *end != 0 || w < 120 || h < 120 || w > 4096 || h > 4096) return false;
  width = static_cast<int>(w);
  height = static_cast<int>(h);
  return true;
}

ScreenGeometry ScreenFor(int dpi) {
  ScreenGeometry screen;
  if (dpi <= 0) dpi = 96;
  screen.width = (240 * dpi + 48) / 96;
  screen.height = (320 * dpi + 48) / 96;
  screen.strip = (26 * dpi + 48) / 96;
  wchar_t text[32] = {};
  if (GetEnvironmentVariableW(L"TIDEWELL_SCREEN", text, 32) > 0) ParseScreenSize(text, screen.width, screen.height);
  return screen;
}

ScreenGeometry& Screen() {
  static ScreenGeometry screen;
  return screen;
}

HWND CreateFullScreenWindow(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style,
                            HINSTANCE instance, void* parameter) {
  // An overlapped top-level window would get a desktop caption: the device
  // has none, so the window is a popup placed where the device puts it. A
  // visible one is shown once its title strip is in place.
  bool okButton = (exStyle & kExCaptionOkButton) != 0;
  RECT work = Screen().Work();
  HWND window = CreateWindowExW(exStyle & ~kExCaptionOkButton, className, title, (style | WS_POPUP) & ~WS_VISIBLE,
                                work.left, work.top, work.right - work.left, work.bottom - work.top, nullptr,
                                nullptr, instance, parameter);
  if (window == nullptr) return nullptr;
  if (okButton) AttachTitleStrip(window);
  if (style & WS_VISIBLE) ShowWindow(window, SW_SHOW);
  return window;
}

bool RegisterWindowClass(const WNDCLASSW& windowClass) {
  WNDCLASSEXW desktop = {};
  desktop.cbSize = sizeof desktop;
  desktop.style = windowClass.style;
  desktop.lpfnWndProc = windowClass.lpfnWndProc;
  desktop.cbClsExtra = windowClass.cbClsExtra;
  desktop.cbWndExtra = windowClass.cbWndExtra;
  desktop.hInstance = windowClass.hInstance;
  desktop.hIcon = windowClass.hIcon;
  desktop.hCursor = windowClass.hCursor;
  desktop.hbrBackground = windowClass.hbrBackground;
  desktop.lpszMenuName = windowClass.lpszMenuName;
  desktop.lpszClassName = windowClass.lpszClassName;
  desktop.hIconSm = windowClass.hIcon;
  return RegisterClassExW(&desktop) != 0;
}

void BringToFront(HWND window) {
  // A desktop takes no tagged handle; owned windows follow their owner anyway.
  auto plain = reinterpret_cast<HWND>(reinterpret_cast<UINT_PTR>(window) & ~static_cast<UINT_PTR>(1));
  if (IsIconic(plain)) ShowWindow(plain, SW_RESTORE);
  SetForegroundWindow(plain);
}

bool InitFullScreenDialog(HWND dialog) {
  if (!IsWindow(dialog)) return false;
  LONG_PTR style = GetWindowLongPtrW(dialog, GWL_STYLE);
  style &= ~static_cast<LONG_PTR>(WS_CAPTION | WS_THICKFRAME | WS_SYSMENU | DS_MODALFRAME);
  SetWindowLongPtrW(dialog, GWL_STYLE, style | WS_POPUP);
  LONG_PTR exStyle = GetWindowLongPtrW(dialog, GWL_EXSTYLE);
  SetWindowLongPtrW(dialog, GWL_EXSTYLE, exStyle & ~static_cast<LONG_PTR>(WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE));
  RECT work = Screen().Work();
  SetWindowPos(dialog, nullptr, work.left, work.top, work.right - work.left, work.bottom - work.top,
               SWP_NOZORDER | SWP_FRAMECHANGED | SWP_NOACTIVATE);
  return AttachTitleStrip(dialog);
}

void EnterDeviceFileSystem() {
  wchar_t windows[MAX_PATH] = {};
  UINT length = GetSystemWindowsDirectoryW(windows, MAX_PATH);
  if (length < 3 || windows[1] != L':') return;
  wchar_t root[] = {windows[0], L':', L'\\', 0};
  SetCurrentDirectoryW(root);
}

namespace {

thread_local HHOOK gBoxHook = nullptr;
thread_local int gBoxDepth = 0;

LRESULT CALLBACK CentreBoxOnScreen(int code, WPARAM wParam, LPARAM lParam) {
  if (code == HCBT_ACTIVATE) {
    auto box = reinterpret_cast<HWND>(wParam);
    wchar_t name[16] = {};
    GetClassNameW(box, name, 16);
    if (lstrcmpW(name, L"#32770") == 0) {
      RECT area;
      GetWindowRect(box, &area);
      const ScreenGeometry& screen = Screen();
      int x = (screen.width - (area.right - area.left)) / 2, y = (screen.height - (area.bottom - area.top)) / 2;
      SetWindowPos(box, nullptr, x > 0 ? x : 0, y > 0 ? y : 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
  }
  return CallNextHookEx(gBoxHook, code, wParam, lParam);
}

}  // namespace

int ShowMessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT type) {
  // Boxes may nest (one shown while painting under another): one hook serves all.
  if (gBoxDepth++ == 0) gBoxHook = SetWindowsHookExW(WH_CBT, CentreBoxOnScreen, nullptr, GetCurrentThreadId());
  int answer = MessageBoxW(owner, text, caption, type);
  if (--gBoxDepth == 0 && gBoxHook != nullptr) {
    UnhookWindowsHookEx(gBoxHook);
    gBoxHook = nullptr;
  }
  return answer;
}

// Sent, not posted, so the Today screen has reloaded before the caller goes
// on; a hung shell costs at most the timeout.
void TellTodayItemsChanged() {
  constexpr WPARAM kTodayItemsChanged = 0xF2;
  DWORD_PTR ignored = 0;
  SendMessageTimeoutW(GetDesktopWindow(), WM_SETTINGCHANGE, kTodayItemsChanged, 0, SMTO_ABORTIFHUNG, 5000,
                      &ignored);
}

// The device keeps documents in "\My Documents" on its one drive. The
// desktop's shell would hand out a folder that Wine links to the user's home,
// so the stand-in keeps a real folder in the device's file system, and a link
// found there (someone else's doing) is refused rather than written through.
std::wstring DocumentsFolder() {
  wchar_t windows[MAX_PATH] = {};
  UINT length = GetSystemWindowsDirectoryW(windows, MAX_PATH);
  if (length < 3 || windows[1] != L':') return L"";
  std::wstring folder = {windows[0], L':', L'\\'};
  folder += L"My Documents";
  CreateDirectoryW(folder.c_str(), nullptr);
  DWORD attributes = GetFileAttributesW(folder.c_str());
  bool realFolder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) &&
                    !(attributes & FILE_ATTRIBUTE_REPARSE_POINT);
  return realFolder ? folder : L"";
}

}  // namespace tw::device
