#include "tests/ui/app_harness.h"

#include <gtest/gtest.h>

#include "app/main_window.h"
#include "app/scaling.h"
#include "app/shell.h"
#include "data/settings_file.h"
#include "platform/win32/device.h"
#include "settings/schema.h"

#if !defined(TW_LIBRARY_FOLDER) || !defined(TW_PROGRAM_RESOURCES)
#error "the build names the folder of the resource libraries and the program's resources"
#endif

namespace tw::test {
namespace {

constexpr wchar_t kShellFolders[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
constexpr wchar_t kDocuments[] = L"C:\\twtest\\Documents";

void InstallResourceLibraries() {
  static bool installed = false;
  if (installed) return;
  installed = true;
  const wchar_t* folders[] = {L"C:\\Program Files\\Orvex", L"C:\\Program Files\\Orvex\\Tidewell",
                              L"C:\\Program Files\\Orvex\\Tidewell\\LangRes"};
  for (const wchar_t* folder : folders) CreateDirectoryW(folder, nullptr);
  const wchar_t* files[] = {L"LowDpiRes.dll", L"HighDpiRes.dll", L"LangRes\\CPEngRc.dll", L"LangRes\\CPDeuRc.dll"};
  for (const wchar_t* file : files) {
    std::wstring from = std::wstring(TW_LIBRARY_FOLDER) + L"\\" + file;
    std::wstring to = std::wstring(L"C:\\Program Files\\Orvex\\Tidewell\\") + file;
    CopyFileW(from.c_str(), to.c_str(), FALSE);
  }
}

HINSTANCE ProgramResources() {
  static HINSTANCE module = LoadLibraryW(TW_PROGRAM_RESOURCES);
  return module;
}

bool IsOwnVisibleBox(HWND window) {
  wchar_t name[16] = {};
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process == GetCurrentProcessId() && IsWindowVisible(window) && GetClassNameW(window, name, 16) &&
         lstrcmpW(name, L"#32770") == 0;
}

LRESULT CALLBACK ListenerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  static UINT changed = RegisterWindowMessageW(kSettingsChangedMessage);
  if (message == changed) SetWindowLongPtrW(window, GWLP_USERDATA, GetWindowLongPtrW(window, GWLP_USERDATA) + 1);
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

MessageBoxAnswerer::MessageBoxAnswerer() : thread_([this] { Run(); }) {}

MessageBoxAnswerer::~MessageBoxAnswerer() {
  stop_ = true;
  thread_.join();
}

void MessageBoxAnswerer::Run() {
  std::vector<HWND> answered;
  while (!stop_) {
    std::vector<HWND> boxes;
    EnumWindows(
        [](HWND window, LPARAM found) {
          if (IsOwnVisibleBox(window)) reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&boxes));
    // A box stays answered until it is gone: one that is hiding must not
    // count as a new box with no text.
    std::erase_if(answered, [](HWND box) { return !IsWindow(box); });
    for (HWND box : boxes) {
      if (std::find(answered.begin(), answered.end(), box) != answered.end()) continue;
      answered.push_back(box);
      Box seen = {};
      wchar_t text[1024] = {};
      GetWindowTextW(box, text, 1024);
      seen.caption = text;
      text[0] = 0;
      GetDlgItemTextW(box, 0xFFFF, text, 1024);
      seen.text = text;
      GetWindowRect(box, &seen.area);
      if (!IsOwnVisibleBox(box)) continue;  // closed while being read
      {
        std::lock_guard<std::mutex> lock(mutex_);
        boxes_.push_back(seen);
      }
      int answer = GetDlgItem(box, IDYES) != nullptr ? yesNo_.load() : IDOK;
      PostMessageW(box, WM_COMMAND, answer, 0);
    }
    Sleep(5);
  }
}

std::vector<MessageBoxAnswerer::Box> MessageBoxAnswerer::Boxes() {
  std::lock_guard<std::mutex> lock(mutex_);
  return boxes_;
}

void MessageBoxAnswerer::Forget() {
  std::lock_guard<std::mutex> lock(mutex_);
  boxes_.clear();
}

BroadcastListener::BroadcastListener() {
  WNDCLASSW wc = {};
  wc.lpfnWndProc = ListenerProc;
  wc.hInstance = GetModuleHandleW(nullptr);
  wc.lpszClassName = L"TwTestBroadcastListener";
  RegisterClassW(&wc);
  window_ = CreateWindowExW(0, wc.lpszClassName, L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, wc.hInstance, nullptr);
}

BroadcastListener::~BroadcastListener() { DestroyWindow(window_); }

int BroadcastListener::Received() const { return static_cast<int>(GetWindowLongPtrW(window_, GWLP_USERDATA)); }

void Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

std::wstring EnglishText(unsigned id) {
  static HMODULE english = LoadLibraryW((std::wstring(TW_LIBRARY_FOLDER) + L"\\LangRes\\CPEngRc.dll").c_str());
  wchar_t text[1024] = {};
  int length = LoadStringW(english, id, text, 1024);
  return std::wstring(text, length > 0 ? length : 0);
}

void AppTest::SetUp() {
  // Device paths resolve on drive C: of the prefix, never on the host's root.
  device::EnterDeviceFileSystem();
  PlatformTest::SetUp();
  InstallResourceLibraries();
  ASSERT_NE(ProgramResources(), nullptr);
  HKEY folders = nullptr;
  RegCreateKeyExW(HKEY_CURRENT_USER, kShellFolders, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &folders, nullptr);
  RegSetValueExW(folders, L"Personal", 0, REG_EXPAND_SZ, reinterpret_cast<const BYTE*>(kDocuments),
                 sizeof kDocuments);
  RegCloseKey(folders);
  SetEnvironmentVariableW(L"TIDEWELL_SCREEN", nullptr);
  Shell().screenKnown = true;
  gScreen.dpiX = gScreen.dpiY = 96;
  SkipFirstRunNotice();
}

void AppTest::TearDown() {
  if (Window() != nullptr) DestroyWindow(Window());
  Pump();
  HKEY folders = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, kShellFolders, 0, KEY_ALL_ACCESS, &folders) == ERROR_SUCCESS) {
    const wchar_t profile[] = L"%USERPROFILE%\\Documents";
    RegSetValueExW(folders, L"Personal", 0, REG_EXPAND_SZ, reinterpret_cast<const BYTE*>(profile), sizeof profile);
    RegCloseKey(folders);
  }
  // Later suites of this process scale without the record's VGA mode.
  gScreen.dpiX = gScreen.dpiY = 96;
  gScreen.vgaMode = nullptr;
  files().Delete(u"\\Program Files\\Orvex\\Tidewell\\TWFilters.txt");
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
