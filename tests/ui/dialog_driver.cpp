#include "tests/ui/dialog_driver.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "base/scaling.h"
#include "platform/win32/device.h"
#include "tools/screen_capture.h"

#if !defined(TW_LIBRARY_FOLDER) || !defined(TW_PROGRAM_RESOURCES)
#error "the build names the folder of the resource libraries and the program's resources"
#endif

namespace tw::test {
namespace {

DialogTest* gDriven = nullptr;

struct Search {
  int marker;
  const std::vector<HWND>* played;
  HWND found = nullptr;
};

BOOL CALLBACK FindDialog(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  if (lstrcmpW(name, L"#32770") == 0 && IsWindowVisible(window) && GetDlgItem(window, search.marker) != nullptr &&
      std::find(search.played->begin(), search.played->end(), window) == search.played->end())
    search.found = window;
  return search.found == nullptr;
}

HWND MenuBarOf(HWND dialog) {
  for (HWND window = GetTopWindow(nullptr); window != nullptr; window = GetWindow(window, GW_HWNDNEXT)) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    if (GetWindow(window, GW_OWNER) == dialog && lstrcmpW(name, L"TwDeviceMenuBar") == 0) return window;
  }
  return nullptr;
}

}  // namespace

void DialogTest::SetUp() {
  device::EnterDeviceFileSystem();
  resources_ = LoadLibraryW(TW_PROGRAM_RESOURCES);
  language_ = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LangRes\\CPEngRc.dll");
  ASSERT_NE(resources_, nullptr);
  ASSERT_NE(language_, nullptr);
  UseScreen({L"240x320", 96});
  RECT work = device::Screen().Work();
  owner_ = CreateWindowExW(0, L"Static", L"Owner", WS_POPUP | WS_VISIBLE, work.left, work.top, work.right - work.left,
                           work.bottom - work.top, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(owner_, nullptr);
  gDriven = this;
}

void DialogTest::TearDown() {
  gDriven = nullptr;
  DestroyWindow(owner_);
  UseScreen({L"240x320", 96});
  Pump();
}

void DialogTest::Then(int marker, Step step) { steps_.push_back({marker, std::move(step)}); }

void DialogTest::StartSteps() { timer_ = SetTimer(nullptr, 0, 20, Tick); }

void DialogTest::StopSteps() {
  KillTimer(nullptr, timer_);
  EXPECT_TRUE(steps_.empty()) << steps_.size() << " step(s) found no dialog";
  steps_.clear();
}

// Runs inside the dialog's loop, and again inside a dialog that a step opens.
void CALLBACK DialogTest::Tick(HWND, UINT, UINT_PTR, DWORD) {
  DialogTest* test = gDriven;
  if (test == nullptr || test->steps_.empty()) return;
  Search search = {test->steps_.front().marker, &test->played_};
  EnumThreadWindows(GetCurrentThreadId(), FindDialog, reinterpret_cast<LPARAM>(&search));
  if (search.found == nullptr) return;
  HWND dialog = search.found;
  test->played_.push_back(dialog);
  Step step = std::move(test->steps_.front().step);
  test->steps_.erase(test->steps_.begin());
  UpdateWindow(dialog);
  step(dialog);
  if (IsWindow(dialog) && IsWindowVisible(dialog)) {
    ADD_FAILURE() << "a step left its dialog open";
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  }
}

void Tap(HWND window, POINT at) {
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
  SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
}

// A button reports its click to the dialog as the system would.
void TapControl(HWND dialog, int id) {
  HWND control = GetDlgItem(dialog, id);
  ASSERT_NE(control, nullptr) << "control " << id;
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(control));
}

bool MenuBarHas(HWND dialog, int command) {
  RECT button = {};
  HWND bar = MenuBarOf(dialog);
  return bar != nullptr && SendMessageW(bar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button));
}

void TapMenuBar(HWND dialog, int command) {
  HWND bar = MenuBarOf(dialog);
  RECT button = {};
  ASSERT_TRUE(bar != nullptr && SendMessageW(bar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button)))
      << "no menu bar button " << command;
  Tap(bar, {(button.left + button.right) / 2, (button.top + button.bottom) / 2});
}

void TypeAndLeave(HWND dialog, int field, const std::wstring& text) {
  HWND edit = GetDlgItem(dialog, field);
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(field, EN_SETFOCUS), reinterpret_cast<LPARAM>(edit));
  SendMessageW(edit, EM_SETSEL, 0, -1);
  SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(field, EN_KILLFOCUS), reinterpret_cast<LPARAM>(edit));
}

std::wstring ItemText(HWND dialog, int id) {
  wchar_t text[512] = {};
  GetDlgItemTextW(dialog, id, text, 512);
  return text;
}

COLORREF PixelAt(HWND window, POINT at) {
  HDC dc = GetDC(window);
  COLORREF pixel = GetPixel(dc, at.x, at.y);
  ReleaseDC(window, dc);
  return pixel;
}

std::vector<Screen> ScreensToCheck() {
  HDC screen = GetDC(nullptr);
  int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  if (dpi >= 192) return {{L"480x640", dpi}};
  return {{L"240x320", 96}, {L"320x240", 96}, {L"480x640", 192}};
}

void UseScreen(const Screen& screen) {
  SetEnvironmentVariableW(L"TIDEWELL_SCREEN", screen.name);
  gScreen.dpiX = gScreen.dpiY = screen.dpi;
  device::Screen() = device::ScreenFor(screen.dpi);
}

std::wstring SaveScreenshot(HWND dialog, const std::wstring& name, const Screen& screen) {
  RedrawWindow(dialog, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  // Wine hands the pixels to the X server shortly after the paint.
  for (int i = 0; i < 10; ++i) {
    Pump();
    Sleep(10);
  }
  wchar_t program[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  std::wstring folder = program;
  folder = folder.substr(0, folder.find_last_of(L'\\')) + L"\\screenshots";
  CreateDirectoryW(folder.c_str(), nullptr);
  HDC dc = GetDC(nullptr);
  int dpi = GetDeviceCaps(dc, LOGPIXELSX);
  ReleaseDC(nullptr, dc);
  std::wstring path = folder + L"\\" + name + L"_" + screen.name + L"_" + std::to_wstring(dpi) + L".bmp";
  const device::ScreenGeometry& device = device::Screen();
  tools::Capture capture;
  if (!tools::CaptureScreen({0, 0, device.width, device.height}, capture) || !tools::WriteBmp(path, capture))
    return L"";
  return path;
}

}  // namespace tw::test
