// Program entry and instance set-up.
#include <windows.h>

#include "app/main_window.h"
#include "app/shell.h"
#include "base/scaling.h"
#include "platform/win32/device.h"
#include "platform/win32/startup_trace.h"
#include "resources/resource_ids.h"

namespace tw {
namespace {

// The window style the device uses: visible, clipping its siblings.
constexpr DWORD kMainWindowStyle = 0x14000800;

void ReadScreenMetrics() {
  if (Shell().screenKnown) return;
  Shell().screenKnown = true;
  HDC screen = GetDC(nullptr);
  gScreen.dpiX = GetDeviceCaps(screen, LOGPIXELSX);
  gScreen.dpiY = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
}

bool RegisterMainClass(HINSTANCE instance, const wchar_t* className) {
  WNDCLASSW wc = {};
  if (GetClassInfoW(instance, className, &wc)) return true;
  wc.style = CS_HREDRAW | CS_VREDRAW;
  wc.lpfnWndProc = MainWindowProc;
  wc.hInstance = instance;
  wc.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(IDI_APP));
  wc.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  wc.lpszClassName = className;
  return device::RegisterWindowClass(wc);
}

// The window's bottom edge meets the top of the menu bar.
void FitAboveMenuBar(HWND window) {
  if (Shell().menuBar == nullptr) return;
  RECT bar, own;
  GetWindowRect(Shell().menuBar, &bar);
  GetWindowRect(window, &own);
  SetWindowPos(window, nullptr, 0, 0, own.right - own.left, bar.top - own.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOREDRAW | SWP_NOACTIVATE);
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
  ++*reinterpret_cast<int*>(count);
  return TRUE;
}

void TraceStartPage(HWND window) {
  if (!trace::On()) return;
  int controls = 0;
  EnumChildWindows(window, CountWindow, reinterpret_cast<LPARAM>(&controls));
  char note[64];
  wsprintfA(note, "%d child windows", controls);
  trace::Step("start page", note);
}

}  // namespace

int StartPageFor(const wchar_t* commandLine) {
  return commandLine != nullptr && lstrcmpiW(commandLine, L"About") == 0 ? kAboutPage : kFirstPage;
}

HWND InitInstance(HINSTANCE instance, int startPage, int showCommand) {
  ShellState& shell = Shell();
  shell.instance = instance;
  wchar_t className[256] = {}, title[256] = {};
  LoadStringW(instance, IDS_WINDOW_CLASS, className, 256);
  LoadStringW(instance, IDS_APP_TITLE, title, 256);

  if (HWND running = FindWindowW(className, title)) {
    // The low bit brings the window's owned windows along.
    device::BringToFront(reinterpret_cast<HWND>(reinterpret_cast<UINT_PTR>(running) | 1));
    return nullptr;
  }

  ReadScreenMetrics();
  gScreen.vgaMode = &Settings().MyVgaMode;
  device::Screen() = device::ScreenFor(gScreen.dpiY);
  shell.settingsChangedMessage = RegisterWindowMessageW(kSettingsChangedMessage);
  shell.currentPage = startPage;

  RegisterMainClass(instance, className);
  trace::Step("window class");
  HWND window = device::CreateFullScreenWindow(device::kExCaptionOkButton, className, title, kMainWindowStyle,
                                               instance, nullptr);
  if (window == nullptr) return nullptr;
  FitAboveMenuBar(window);
  trace::Step("title strip");

  SendMessageW(shell.selector, CB_SETCURSEL, startPage, 0);
  ShowPage(startPage, SW_SHOW);
  TraceStartPage(window);
  ShowWindow(window, showCommand);
  UpdateWindow(window);
  trace::Step("first paint");
  trace::Finish();
  return window;
}

int RunSettingsProgram(HINSTANCE instance, const wchar_t* commandLine, int showCommand) {
  trace::Start();
  device::EnterDeviceFileSystem();
  int startPage = StartPageFor(commandLine);
  HWND window = InitInstance(instance, startPage, showCommand);
  if (window == nullptr) return 0;
  HACCEL accelerators = LoadAcceleratorsW(instance, MAKEINTRESOURCEW(IDA_MAIN));
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (TranslateAcceleratorW(Shell().mainWindow, accelerators, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

}  // namespace tw
