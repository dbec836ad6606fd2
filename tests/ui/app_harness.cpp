#include "tests/ui/app_harness.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "app/main_window.h"
#include "app/shell.h"
#include "base/scaling.h"
#include "data/settings_file.h"
#include "platform/win32/device.h"
#include "settings/schema.h"
#include "tests/ui/layout_check.h"
#include "tests/ui/recording_parent.h"

#if !defined(TW_LIBRARY_FOLDER) || !defined(TW_PROGRAM_RESOURCES)
#error "the build names the folder of the resource libraries and the program's resources"
#endif

namespace tw::test {
namespace {

void InstallResourceLibraries() {
  static bool installed = false;
  if (std::exchange(installed, true)) return;
  const std::wstring target = L"C:\\Program Files\\Orvex\\Tidewell\\";
  for (const wchar_t* folder : {L"C:\\Program Files\\Orvex", L"C:\\Program Files\\Orvex\\Tidewell"})
    CreateDirectoryW(folder, nullptr);
  CreateDirectoryW((target + L"LangRes").c_str(), nullptr);
  for (const wchar_t* file : {L"LowDpiRes.dll", L"HighDpiRes.dll", L"LangRes\\CPEngRc.dll", L"LangRes\\CPDeuRc.dll"})
    CopyFileW((TW_LIBRARY_FOLDER L"\\" + std::wstring(file)).c_str(), (target + file).c_str(), FALSE);
}

HINSTANCE ProgramResources() {
  static HINSTANCE module = LoadLibraryW(TW_PROGRAM_RESOURCES);
  return module;
}

MessageBoxAnswerer* gAnswerer = nullptr;

LRESULT CALLBACK ListenerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == UINT(GetWindowLongPtrW(window, 0)))
    SetWindowLongPtrW(window, GWLP_USERDATA, GetWindowLongPtrW(window, GWLP_USERDATA) + 1);
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

MessageBoxAnswerer::MessageBoxAnswerer() : hook_(SetWindowsHookExW(WH_CBT, Hook, nullptr, GetCurrentThreadId())) {
  gAnswerer = this;
}

// A message box is a dialog with its text in control 0xFFFF; by its
// activation it has its text and its place.
LRESULT CALLBACK MessageBoxAnswerer::Hook(int code, WPARAM wParam, LPARAM lParam) {
  auto box = reinterpret_cast<HWND>(wParam);
  wchar_t name[16] = {}, caption[1024] = {}, text[1024] = {};
  if (code == HCBT_ACTIVATE && box != gAnswerer->last_ && GetClassNameW(box, name, 16) &&
      lstrcmpW(name, L"#32770") == 0 && GetDlgItemTextW(box, 0xFFFF, text, 1024) > 0) {
    gAnswerer->last_ = box;
    GetWindowTextW(box, caption, 1024);
    gAnswerer->boxes.push_back({caption, text, {}});
    GetWindowRect(box, &gAnswerer->boxes.back().area);
    PostMessageW(box, WM_COMMAND, GetDlgItem(box, IDYES) != nullptr ? gAnswerer->yesNo_ : IDOK, 0);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

std::vector<std::wstring> MessageBoxAnswerer::Seen() const {
  std::vector<std::wstring> seen;
  for (const Box& box : boxes) seen.push_back(box.caption + L": " + box.text);
  return seen;
}

BroadcastListener::BroadcastListener(UINT message, const wchar_t* className) {
  WNDCLASSW type = {};
  type.lpfnWndProc = ListenerProc;
  type.cbWndExtra = sizeof(LONG_PTR);
  type.hInstance = GetModuleHandleW(nullptr);
  type.lpszClassName = className;
  RegisterClassW(&type);
  window_ = CreateWindowExW(0, className, L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, type.hInstance, nullptr);
  SetWindowLongPtrW(window_, 0, message != 0 ? message : RegisterWindowMessageW(kSettingsChangedMessage));
}

int BroadcastListener::Received() const {
  Pump();
  return static_cast<int>(GetWindowLongPtrW(window_, GWLP_USERDATA));
}

#if !defined(TW_DESKTOP_SPY)
#error "the build names the hook library loaded into the desktop's process"
#endif

// The class name and message the hook library posts with.
TodayScreenListener::TodayScreenListener() : BroadcastListener(WM_APP, L"TwTestDesktopListener") {
  HMODULE spy = LoadLibraryW(TW_DESKTOP_SPY);
  auto hook = reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(GetProcAddress(spy, "DesktopSpyHook")));
  DWORD desktopThread = GetWindowThreadProcessId(GetDesktopWindow(), nullptr);
  if (hook != nullptr) hook_ = SetWindowsHookExW(WH_CALLWNDPROC, hook, spy, desktopThread);
  EXPECT_NE(hook_, nullptr) << "cannot listen to the desktop window";
}

TodayScreenListener::~TodayScreenListener() {
  if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
}

void Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

std::wstring EnglishText(unsigned id) {
  static HMODULE english = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LangRes\\CPEngRc.dll");
  wchar_t text[1024] = {};
  return std::wstring(text, std::max(LoadStringW(english, id, text, 1024), 0));
}

void AppTest::SetUp() {
  // Device paths resolve on drive C: of the prefix, never on the host's root.
  device::EnterDeviceFileSystem();
  PlatformTest::SetUp();
  InstallResourceLibraries();
  ASSERT_NE(ProgramResources(), nullptr);
  SetEnvironmentVariableW(L"TIDEWELL_SCREEN", nullptr);
  Shell().screenKnown = true;
  gScreen.dpiX = gScreen.dpiY = 96;
  files().Delete(kDocument);
  SkipFirstRunNotice();
}

void AppTest::TearDown() {
  if (Window() != nullptr) DestroyWindow(Window());
  Pump();
  // Later suites of this process scale without the record's VGA mode.
  gScreen.dpiX = gScreen.dpiY = 96;
  gScreen.vgaMode = nullptr;
  files().Delete(u"\\Program Files\\Orvex\\Tidewell\\TWFilters.txt");
  files().Delete(kDocument);
  PlatformTest::TearDown();
}

HWND AppTest::Start(int startPage) {
  HWND window = InitInstance(ProgramResources(), startPage, SW_SHOW);
  Pump();
  return window;
}

HWND AppTest::Window() const { return Shell().mainWindow; }

void AppTest::SelectPage(int page) {
  HWND selector = Shell().selector;
  SendMessageW(selector, CB_SETCURSEL, page, 0);
  SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(selector), CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(selector));
  Pump();
}

void AppTest::TapTab(HWND strip, int tab) {
  NMHDR header = {strip, static_cast<UINT_PTR>(GetDlgCtrlID(strip)), static_cast<UINT>(TCN_SELCHANGING)};
  SendMessageW(Window(), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
  SendMessageW(strip, TCM_SETCURSEL, tab, 0);
  header.code = TCN_SELCHANGE;
  SendMessageW(Window(), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

void AppTest::ExpectLayoutFits(const std::string& label) {
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  wchar_t page[128] = {};
  GetWindowTextW(Shell().selector, page, 128);
  std::string where = label + ", page '" + Narrow(page) + "'";
  for (const std::string& fault : CheckLayout(Window()))
    ADD_FAILURE() << where << ": " << fault;
}

void AppTest::CheckEveryScreen(const std::wstring& name, int shots, const std::function<void()>& open,
                               const std::function<void(int shot)>& show) {
  const struct {
    const wchar_t* size;
    int dpi;
  } screens[] = {{L"240x320", 96}, {L"320x240", 96}, {L"480x640", 192}};
  // German words run longer than English ones; the library is chosen in the
  // registry as the General page leaves it. Shots in German are named <name>-de.
  const struct {
    const char16_t* library;
    const wchar_t* suffix;
  } languages[] = {{u"CPEngRc.dll", L""}, {u"CPDeuRc.dll", L"-de"}};
  for (const auto& language : languages) {
    PutText(kProductKey, u"SelectedLangResFile", std::u16string(u"\\Program Files\\Orvex\\Tidewell\\LangRes\\") +
                                                     language.library);
    for (const auto& screen : screens) {
      std::string where = Narrow(name + language.suffix + L" " + screen.size);
      SCOPED_TRACE(where);
      SetEnvironmentVariableW(L"TIDEWELL_SCREEN", screen.size);
      gScreen.dpiX = gScreen.dpiY = screen.dpi;
      Start();
      open();
      for (int shot = 0; shot < shots; ++shot) {
        show(shot);
        ExpectLayoutFits(where + " shot " + std::to_string(shot));
        Pump();  // the controls paint after the page, as the message loop has them
        SaveScreenshot(name + language.suffix + L"-" + screen.size + L"-" + std::to_wstring(shot), Window());
      }
      DestroyWindow(Window());
      Pump();
    }
  }
  // The prefix is the run script's too: it gets its language back.
  registry().DeleteValue(ScopedKey(registry(), kCurrentUser, kProductKey, false).get(), u"SelectedLangResFile");
}

void AppTest::Command(unsigned id) {
  SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(id, 0), 0);
  Pump();
}

void AppTest::SkipFirstRunNotice() {
  WriteDword(registry(), kCurrentUser, kProductKey, u"FirstTimeSettingsMsg", 1);
}

std::string AppTest::RegistrySnapshot() {
  SettingsTextOutput out;
  ExportRegistryTree(registry(), kProductKey, out);
  return out.Bytes();
}

}  // namespace tw::test
