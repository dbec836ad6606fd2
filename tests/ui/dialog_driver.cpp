#include "tests/ui/dialog_driver.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "base/scaling.h"
#include "platform/win32/device.h"
#include "resources/resource_ids.h"
#include "tests/ui/layout_check.h"
#include "tests/ui/recording_parent.h"

#if !defined(TW_LIBRARY_FOLDER) || !defined(TW_PROGRAM_RESOURCES)
#error "the build names the folder of the resource libraries and the program's resources"
#endif

namespace tw::test {
namespace {

struct Pending {
  std::vector<std::pair<int, Step>> steps;
  std::vector<HWND> played;
  int waited = 0;  // ticks since the last step found its dialog
} gPending;
const wchar_t* gScreenName = L"240x320";

void UseScreen(const wchar_t* name, int dpi) {
  SetEnvironmentVariableW(L"TIDEWELL_SCREEN", name);
  gScreenName = name;
  gScreen.dpiX = gScreen.dpiY = dpi;
  device::Screen() = device::ScreenFor(dpi);
}

// The first visible dialog of this thread holding `marker` that no step has had.
HWND FindDialog(int marker, const std::vector<HWND>& played) {
  for (HWND found = nullptr; (found = FindWindowExW(nullptr, found, L"#32770", nullptr)) != nullptr;)
    if (IsWindowVisible(found) && GetDlgItem(found, marker) != nullptr &&
        GetWindowThreadProcessId(found, nullptr) == GetCurrentThreadId() &&
        std::find(played.begin(), played.end(), found) == played.end())
      return found;
  return nullptr;
}

// Runs inside the dialog's loop, and again inside a dialog that a step opens.
// A step whose dialog never comes (another one opened instead) gives up and
// closes what is open, so a wrong dialog never hangs the suite either.
void CALLBACK PlayNext(HWND, UINT, UINT_PTR, DWORD) {
  if (gPending.steps.empty()) return;
  HWND dialog = FindDialog(gPending.steps.front().first, gPending.played);
  if (dialog == nullptr && ++gPending.waited > 250) {
    ADD_FAILURE() << "no dialog holding control " << gPending.steps.front().first << " came";
    gPending.steps.clear();
    for (HWND open = nullptr; (open = FindWindowExW(nullptr, open, L"#32770", nullptr)) != nullptr;)
      if (GetWindowThreadProcessId(open, nullptr) == GetCurrentThreadId()) PostMessageW(open, WM_COMMAND, IDCANCEL, 0);
  }
  if (dialog == nullptr) return;
  gPending.waited = 0;
  gPending.played.push_back(dialog);
  Step step = std::move(gPending.steps.front().second);
  gPending.steps.erase(gPending.steps.begin());
  UpdateWindow(dialog);
  step(dialog);
  if (IsWindow(dialog) && IsWindowVisible(dialog)) {
    ADD_FAILURE() << "a step left its dialog open";
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  }
}

// The dialog's menu bar and the middle of its button, or no bar.
std::pair<HWND, POINT> MenuBarButton(HWND dialog, int command) {
  HWND bar = nullptr;
  while ((bar = FindWindowExW(nullptr, bar, L"TwDeviceMenuBar", nullptr)) && GetWindow(bar, GW_OWNER) != dialog) {
  }
  RECT button = {};
  if (!bar || !SendMessageW(bar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button))) return {nullptr, {}};
  return {bar, {(button.left + button.right) / 2, (button.top + button.bottom) / 2}};
}

}  // namespace

void DialogTest::SetUp() {
  device::EnterDeviceFileSystem();
  resources_ = LoadLibraryW(TW_PROGRAM_RESOURCES);
  language_ = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LangRes\\CPEngRc.dll");
  ASSERT_TRUE(resources_ && language_);
  UseScreen(L"240x320", 96);
  RECT work = device::Screen().Work();
  owner_ = CreateWindowExW(0, L"Static", L"Owner", WS_POPUP | WS_VISIBLE, work.left, work.top, work.right - work.left,
                           work.bottom - work.top, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(owner_, nullptr);
}

void DialogTest::TearDown() {
  DestroyWindow(owner_);
  UseScreen(L"240x320", 96);
  Pump();
}

void Then(int marker, Step step) { gPending.steps.emplace_back(marker, std::move(step)); }

void PlaySteps(const std::function<void()>& open) {
  UINT_PTR timer = SetTimer(nullptr, 0, 20, PlayNext);
  open();
  KillTimer(nullptr, timer);
  EXPECT_TRUE(gPending.steps.empty()) << gPending.steps.size() << " step(s) found no dialog";
  gPending = {};
}

void DialogTest::OnEveryScreen(int marker, const std::wstring& name, const std::function<void()>& open, Step more) {
  const std::pair<const wchar_t*, int> screens[] = {{L"240x320", 96}, {L"320x240", 96}, {L"480x640", 192}};
  // In English, then in German, whose words run longer.
  HMODULE english = language_, german = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LangRes\\CPDeuRc.dll");
  ASSERT_NE(german, nullptr);
  for (auto [language, suffix] : {std::pair{english, L""}, std::pair{german, L"-de"}}) {
    language_ = language;
    for (auto [size, density] : screens) {
      UseScreen(size, density);
      SCOPED_TRACE(::testing::PrintToString(std::wstring(size) + suffix));
      Then(marker, [&](HWND dialog) {
        CheckLayoutAndSave(dialog, name + suffix);
        if (more) more(dialog);
        TapMenuBar(dialog, IDM_CANCEL);
      });
      PlaySteps(open);
    }
  }
  language_ = english;
  FreeLibrary(german);
}

void CheckLayoutAndSave(HWND dialog, const std::wstring& name) {
  for (const std::string& fault : CheckLayout(dialog)) ADD_FAILURE() << fault;
  RedrawWindow(dialog, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  std::wstring shot = name + L"_" + gScreenName + L"_" + std::to_wstring(gScreen.dpiX);
  EXPECT_NE(SaveScreenshot(shot, dialog, {0, 0, device::Screen().width, device::Screen().height}), L"");
}

void Tap(HWND window, POINT at) {
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
  SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
}

void TapChooserRow(HWND dialog, const std::wstring& text) {
  HWND list = GetDlgItem(dialog, IDC_CHOOSER_LIST);
  LRESULT row = SendMessageW(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
  ASSERT_NE(row, LB_ERR) << "no row for the entry";
  RECT area = {};
  SendMessageW(list, LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&area));
  Tap(list, {area.left + 5, (area.top + area.bottom) / 2});
}

// A button reports its click to the dialog as the system would.
void TapControl(HWND dialog, int id) {
  HWND control = GetDlgItem(dialog, id);
  ASSERT_NE(control, nullptr) << "control " << id;
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(control));
}

bool MenuBarHas(HWND dialog, int command) { return MenuBarButton(dialog, command).first != nullptr; }

void TapMenuBar(HWND dialog, int command) {
  auto [bar, button] = MenuBarButton(dialog, command);
  ASSERT_NE(bar, nullptr) << "no menu bar button " << command;
  Tap(bar, button);
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

}  // namespace tw::test
