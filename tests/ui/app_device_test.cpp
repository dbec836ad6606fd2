// The desktop's stand-ins for the device's shell, tapped as a user would:
// the title strip's OK, the menu bar's image buttons and menu, and the
// full-screen dialog with Done.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include "app/shell.h"
#include "platform/win32/device.h"
#include "resources/resource_ids.h"
#include "tests/ui/app_harness.h"

namespace tw::test {
namespace {

HWND OwnedWindow(HWND owner, const wchar_t* className) {
  struct Search {
    HWND owner;
    const wchar_t* name;
    HWND found;
  } search = {owner, className, nullptr};
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM data) -> BOOL {
        auto* s = reinterpret_cast<Search*>(data);
        wchar_t name[64] = {};
        GetClassNameW(window, name, 64);
        if (GetWindow(window, GW_OWNER) == s->owner && lstrcmpW(name, s->name) == 0) s->found = window;
        return s->found == nullptr;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

void Tap(HWND window, POINT at) {
  LPARAM position = MAKELPARAM(at.x, at.y);
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, position);
  SendMessageW(window, WM_LBUTTONUP, 0, position);
  Pump();
}

// The centre of a menu bar button, in the bar's tool bar.
POINT MenuButton(HWND& toolBar, int command) {
  toolBar = FindWindowExW(Shell().menuBar, nullptr, TOOLBARCLASSNAMEW, nullptr);
  RECT button = {};
  SendMessageW(toolBar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button));
  return {(button.left + button.right) / 2, (button.top + button.bottom) / 2};
}

using DeviceTest = AppTest;

TEST_F(DeviceTest, ScreenIsSharedBetweenStripWindowAndBar) {
  ASSERT_NE(Start(), nullptr);
  HWND strip = OwnedWindow(Window(), L"TwDeviceTitleStrip");
  ASSERT_NE(strip, nullptr);
  RECT top, middle, bottom, client;
  GetWindowRect(strip, &top);
  GetWindowRect(Window(), &middle);
  GetWindowRect(Shell().menuBar, &bottom);
  GetClientRect(Window(), &client);
  EXPECT_EQ(top.top, 0);
  EXPECT_EQ(top.bottom, middle.top);
  EXPECT_EQ(middle.bottom, bottom.top);
  EXPECT_EQ(bottom.bottom, 320);
  EXPECT_EQ(client.right, 240);
  EXPECT_EQ(client.bottom, 268);
}

TEST_F(DeviceTest, TitleStripOkIsDone) {
  ASSERT_NE(Start(), nullptr);
  HWND strip = OwnedWindow(Window(), L"TwDeviceTitleStrip");
  RECT area;
  GetClientRect(strip, &area);
  Tap(strip, {area.right / 2, area.bottom / 2});
  EXPECT_NE(Window(), nullptr) << "the title is not a button";
  Tap(strip, {area.right - area.bottom / 2, area.bottom / 2});
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(WaitFor([&] { return listener_.Received() == 1; }));
}

TEST_F(DeviceTest, MenuBarButtonsSendCancelAndDone) {
  ASSERT_NE(Start(), nullptr);
  HWND toolBar = nullptr;
  POINT cancel = MenuButton(toolBar, IDM_CANCEL);
  ASSERT_NE(toolBar, nullptr);
  answerer_.AnswerYesNo(IDNO);
  Tap(toolBar, cancel);
  ASSERT_EQ(answerer_.Boxes().size(), 1u);
  EXPECT_EQ(answerer_.Boxes()[0].caption, EnglishText(40217));
  ASSERT_NE(Window(), nullptr);
  Tap(toolBar, MenuButton(toolBar, IDOK));
  EXPECT_EQ(Window(), nullptr);
}

INT_PTR CALLBACK RecordingDialog(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
  if (message == WM_COMMAND) SetWindowLongPtrW(dialog, DWLP_USER, LOWORD(wParam));
  return message == WM_INITDIALOG;
}

TEST_F(DeviceTest, FullScreenDialogWithDone) {
  device::Screen() = device::ScreenFor(96);
  struct {
    DLGTEMPLATE header;
    WORD menu, windowClass, title;
  } blank = {{WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, 0, 0, 10, 10, 100, 60}, 0, 0, 0};
  HWND dialog = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &blank.header, nullptr, RecordingDialog, 0);
  ASSERT_NE(dialog, nullptr);
  ASSERT_TRUE(device::InitFullScreenDialog(dialog));
  RECT area;
  GetWindowRect(dialog, &area);
  EXPECT_EQ(area.top, 26);
  EXPECT_EQ(area.right - area.left, 240);
  EXPECT_EQ(area.bottom, 320);
  EXPECT_EQ(GetWindowLongPtrW(dialog, GWL_STYLE) & WS_CAPTION, 0) << "the title strip replaces the caption";
  HWND strip = OwnedWindow(dialog, L"TwDeviceTitleStrip");
  ASSERT_NE(strip, nullptr);
  RECT bar;
  GetClientRect(strip, &bar);
  Tap(strip, {bar.right - bar.bottom / 2, bar.bottom / 2});
  EXPECT_EQ(GetWindowLongPtrW(dialog, DWLP_USER), IDOK);
  DestroyWindow(dialog);
  EXPECT_FALSE(IsWindow(strip)) << "the strip goes with its dialog";
}

TEST_F(DeviceTest, ScreenSizeFromTheEnvironment) {
  int width = 0, height = 0;
  EXPECT_TRUE(device::ParseScreenSize(L"320x240", width, height));
  EXPECT_EQ(width, 320);
  EXPECT_EQ(height, 240);
  EXPECT_FALSE(device::ParseScreenSize(L"320x", width, height));
  EXPECT_FALSE(device::ParseScreenSize(L"320*240", width, height));
  EXPECT_FALSE(device::ParseScreenSize(L"320x240px", width, height));
  SetEnvironmentVariableW(L"TIDEWELL_SCREEN", L"320x240");
  device::ScreenGeometry landscape = device::ScreenFor(96);
  EXPECT_EQ(landscape.width, 320);
  EXPECT_EQ(landscape.strip, 26);
  SetEnvironmentVariableW(L"TIDEWELL_SCREEN", nullptr);
  device::ScreenGeometry dense = device::ScreenFor(192);
  EXPECT_EQ(dense.width, 480);
  EXPECT_EQ(dense.height, 640);
  EXPECT_EQ(dense.strip, 52);
}

}  // namespace
}  // namespace tw::test
