// The desktop's stand-ins for the device's shell, tapped as a user would:
// the title strip's OK, the menu bar's image buttons, and the full-screen
// dialog with Done.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <vector>

#include "app/shell.h"
#include "platform/win32/device.h"
#include "resources/resource_ids.h"
#include "tests/ui/app_harness.h"

namespace tw::test {
namespace {

// The strip that stands in for the device's title bar above a window.
HWND TitleStrip(HWND owner) {
  HWND strip = FindWindowW(L"TwDeviceTitleStrip", nullptr);
  return strip != nullptr && GetWindow(strip, GW_OWNER) == owner ? strip : nullptr;
}

void Tap(HWND window, POINT at) {
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
  SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
  Pump();
}

// The middle of the strip's title, or of its OK at the right end.
POINT OnStrip(HWND strip, bool ok) {
  RECT area;
  GetClientRect(strip, &area);
  return {ok ? area.right - area.bottom / 2 : area.right / 2, area.bottom / 2};
}

// Taps the menu bar button of a command.
void TapMenuButton(int command) {
  RECT button = {};
  ASSERT_TRUE(SendMessageW(Shell().menuBar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button)));
  Tap(Shell().menuBar, {(button.left + button.right) / 2, (button.top + button.bottom) / 2});
}

using DeviceTest = AppTest;

TEST_F(DeviceTest, TitleStripOkIsDone) {
  ASSERT_NE(Start(), nullptr);
  HWND strip = TitleStrip(Window());
  ASSERT_NE(strip, nullptr);
  Tap(strip, OnStrip(strip, false));
  EXPECT_NE(Window(), nullptr) << "the title is not a button";
  Tap(strip, OnStrip(strip, true));
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(WaitFor([&] { return listener_.Received() == 1; }));
}

TEST_F(DeviceTest, MenuBarButtonsSendCancelAndDone) {
  ASSERT_NE(Start(), nullptr);
  answerer_.AnswerYesNo(IDNO);
  TapMenuButton(IDM_CANCEL);
  ASSERT_EQ(answerer_.boxes.size(), 1u);
  EXPECT_EQ(answerer_.boxes[0].caption, EnglishText(40217));
  ASSERT_NE(Window(), nullptr);
  TapMenuButton(IDOK);
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
  EXPECT_EQ((std::vector<LONG>{area.left, area.top, area.right, area.bottom}), (std::vector<LONG>{0, 26, 240, 320}));
  EXPECT_EQ(GetWindowLongPtrW(dialog, GWL_STYLE) & WS_CAPTION, 0) << "the title strip replaces the caption";
  HWND strip = TitleStrip(dialog);
  ASSERT_NE(strip, nullptr);
  Tap(strip, OnStrip(strip, true));
  EXPECT_EQ(GetWindowLongPtrW(dialog, DWLP_USER), IDOK);
  DestroyWindow(dialog);
  EXPECT_FALSE(IsWindow(strip)) << "the strip goes with its dialog";
}

}  // namespace
}  // namespace tw::test
