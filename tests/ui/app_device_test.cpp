// The desktop's stand-ins for the device's shell, tapped as a user would:
// the title strip's OK, the menu bar's buttons and menu, and the full-screen
// dialog with Done.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <vector>

#include "app/shell.h"
#include "platform/win32/device.h"
#include "resources/resource_ids.h"
#include "tests/ui/app_harness.h"
#include "tests/ui/recording_parent.h"

namespace tw::test {
namespace {

void Tap(HWND window, POINT at) {
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
  SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
  Pump();
}

// A tap at a point of the screen on a window's edge, which the window's hit
// test names, as the system would deliver it.
void TapEdge(HWND window, POINT screen) {
  LPARAM at = MAKELPARAM(screen.x, screen.y);
  WPARAM hit = SendMessageW(window, WM_NCHITTEST, 0, at);
  ASSERT_NE(hit, static_cast<WPARAM>(HTCLIENT)) << "the point lies on the client area";
  SendMessageW(window, WM_NCLBUTTONDOWN, hit, at);
  SendMessageW(window, WM_NCLBUTTONUP, hit, at);
  Pump();
}

// The middle of the title strip above a window's client area, or of its OK at the right end.
POINT OnStrip(HWND window, bool ok) {
  RECT area;
  GetWindowRect(window, &area);
  int strip = device::Screen().strip;
  return {ok ? area.right - strip / 2 : (area.left + area.right) / 2, area.top + strip / 2};
}

std::vector<LONG> ClientOnScreen(HWND window) {
  RECT area;
  GetClientRect(window, &area);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
  return {area.left, area.top, area.right, area.bottom};
}

// The strip's colour at its top left corner, as drawn.
COLORREF StripPixel(HWND window) {
  HDC dc = GetWindowDC(window);
  COLORREF colour = GetPixel(dc, 1, 1);
  ReleaseDC(window, dc);
  return colour;
}

constexpr COLORREF kStripColour = RGB(0x1C, 0x3E, 0x94);

void TapMenuButton(int command) {
  RECT button = {};
  ASSERT_TRUE(SendMessageW(Shell().menuBar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button)));
  Tap(Shell().menuBar, {(button.left + button.right) / 2, (button.top + button.bottom) / 2});
}

// What the screen shows at the middle of a menu bar button.
std::vector<std::uint8_t> ButtonPicture(int command) {
  RECT button = {};
  SendMessageW(Shell().menuBar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button));
  POINT middle = {(button.left + button.right) / 2, (button.top + button.bottom) / 2};
  ClientToScreen(Shell().menuBar, &middle);
  return Shot(Shell().menuBar, {middle.x - 8, middle.y - 8, middle.x + 8, middle.y + 8}).rows;
}

using DeviceTest = AppTest;

// Only the strip's OK and the bar's Done end the program; Cancel asks first.
TEST_F(DeviceTest, TitleStripOkAndMenuBarButtons) {
  ASSERT_NE(Start(), nullptr);
  EXPECT_EQ(ClientOnScreen(Window()), (std::vector<LONG>{0, 26, 240, 294})) << "the strip is the window's top edge";
  UpdateWindow(Window());
  EXPECT_EQ(StripPixel(Window()), kStripColour);
  EXPECT_NE(ButtonPicture(IDM_CANCEL), ButtonPicture(IDOK)) << "Cancel and Done show pictures of their own";
  TapEdge(Window(), OnStrip(Window(), false));
  answerer_.AnswerYesNo(IDNO);
  TapMenuButton(IDM_CANCEL);
  EXPECT_EQ(answerer_.Seen(), std::vector<std::wstring>{EnglishBox(40216, 40217)});
  ASSERT_NE(Window(), nullptr) << "neither the title nor No ends the program";
  TapEdge(Window(), OnStrip(Window(), true));
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(WaitFor([&] { return listener_.Received() == 1; }));

  ASSERT_NE(Start(), nullptr);
  TapMenuButton(IDOK);
  EXPECT_EQ(Window(), nullptr);
}

// While the popup menu runs its own loop, the keys a user presses there:
// the first item, then Enter.
void CALLBACK ChooseFirstMenuItem(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  PostMessageW(Shell().mainWindow, WM_KEYDOWN, VK_DOWN, 0);
  PostMessageW(Shell().mainWindow, WM_KEYDOWN, VK_RETURN, 0);
}

TEST_F(DeviceTest, MenuBarToolsOpensItsMenuAndSendsTheChoice) {
  ASSERT_NE(Start(), nullptr);
  RECT cancel = {};
  ASSERT_TRUE(SendMessageW(Shell().menuBar, TB_GETRECT, IDM_CANCEL, reinterpret_cast<LPARAM>(&cancel)));
  UINT_PTR timer = SetTimer(nullptr, 0, 50, ChooseFirstMenuItem);
  Tap(Shell().menuBar, {cancel.left / 2, (cancel.top + cancel.bottom) / 2});  // Tools stands left of Cancel
  KillTimer(nullptr, timer);
  ASSERT_FALSE(answerer_.boxes.empty()) << "no command came from the menu";
  EXPECT_EQ(answerer_.Last(), EnglishBox(40208, 40209)) << "Export, the first item, was chosen";
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
  EXPECT_EQ(ClientOnScreen(dialog), (std::vector<LONG>{0, 26, 240, 320}));
  EXPECT_EQ(GetWindowLongPtrW(dialog, GWL_STYLE) & WS_CAPTION, 0) << "the title strip replaces the caption";
  ShowWindow(dialog, SW_SHOWNA);
  RedrawWindow(dialog, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE | RDW_UPDATENOW);
  EXPECT_EQ(StripPixel(dialog), kStripColour);
  TapEdge(dialog, OnStrip(dialog, true));
  EXPECT_EQ(GetWindowLongPtrW(dialog, DWLP_USER), IDOK);
  DestroyWindow(dialog);
}

}  // namespace
}  // namespace tw::test
