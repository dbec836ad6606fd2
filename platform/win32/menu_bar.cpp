// The device's menu bar: a strip along the bottom of the screen with one text
// button per top-level popup of the menu resource, which opens that popup
// (the owner sees WM_INITMENUPOPUP and the chosen command), followed by the
// buttons added with TB_ADDBUTTONS, which send their commands to the owner:
// an image from the bar's strip, or a text (iBitmap I_IMAGENONE, iString
// pointing at the text, which the bar copies). The bar draws its buttons itself: loading Wine's common controls for
// a tool bar would take some 17 ms, a tenth of the program's start-up.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "platform/win32/control_state.h"
#include "platform/win32/device.h"

namespace tw::device {
namespace {

constexpr wchar_t kClassName[] = L"TwDeviceMenuBar";

struct Button {
  RECT area;
  int popup;     // index of the menu's popup, or -1
  int image;     // index in the image strip, or -1
  int command;   // for image buttons
  std::wstring text;
};

struct BarState {
  HWND owner = nullptr;
  HMENU menu = nullptr;
  HFONT font = nullptr;
  HBITMAP images = nullptr;  // square cells side by side
  COLORREF mask = 0;
  std::vector<Button> buttons;
  int pressed = -1;
};

int ImageSize(const BarState& state) {
  BITMAP info = {};
  return state.images && GetObjectW(state.images, sizeof info, &info) ? info.bmHeight : 0;
}

// Buttons stand side by side from the left, each as high as the bar below its line.
void PlaceButton(HWND bar, BarState& state, Button button, int contentWidth) {
  RECT client;
  GetClientRect(bar, &client);
  int padding = client.bottom / 3;
  int left = state.buttons.empty() ? 0 : state.buttons.back().area.right;
  button.area = {left, 1, left + contentWidth + 2 * padding, client.bottom};
  state.buttons.push_back(std::move(button));
}

void AddPopupButtons(HWND bar, BarState& state) {
  HDC dc = GetDC(bar);
  HGDIOBJ oldFont = SelectObject(dc, state.font);
  int count = GetMenuItemCount(state.menu);
  for (int i = 0; i < count; ++i) {
    wchar_t text[64] = {};
    GetMenuStringW(state.menu, i, text, 64, MF_BYPOSITION);
    SIZE extent = {};
    GetTextExtentPoint32W(dc, text, lstrlenW(text), &extent);
    PlaceButton(bar, state, {{}, i, -1, 0, text}, extent.cx);
  }
  SelectObject(dc, oldFont);
  ReleaseDC(bar, dc);
}

int TextWidth(HWND bar, const BarState& state, const std::wstring& text) {
  HDC dc = GetDC(bar);
  HGDIOBJ oldFont = SelectObject(dc, state.font);
  SIZE extent = {};
  GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &extent);
  SelectObject(dc, oldFont);
  ReleaseDC(bar, dc);
  return extent.cx;
}

LRESULT AddCommandButtons(HWND bar, BarState& state, int count, const TBBUTTON* buttons) {
  if (buttons == nullptr) return FALSE;
  for (int i = 0; i < count; ++i) {
    const TBBUTTON& added = buttons[i];
    if (added.iBitmap == I_IMAGENONE) {
      std::wstring text = added.iString != 0 ? reinterpret_cast<const wchar_t*>(added.iString) : L"";
      PlaceButton(bar, state, {{}, -1, -1, added.idCommand, text}, TextWidth(bar, state, text));
    } else {
      PlaceButton(bar, state, {{}, -1, added.iBitmap, added.idCommand, {}}, ImageSize(state));
    }
  }
  InvalidateRect(bar, nullptr, TRUE);
  return TRUE;
}

LRESULT ButtonRect(const BarState& state, int command, RECT* area) {
  for (const Button& button : state.buttons)
    if (button.popup < 0 && button.command == command && area != nullptr) {
      *area = button.area;
      return TRUE;
    }
  return FALSE;
}

int ButtonAt(const BarState& state, LPARAM position) {
  POINT at = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
  for (size_t i = 0; i < state.buttons.size(); ++i)
    if (PtInRect(&state.buttons[i].area, at)) return static_cast<int>(i);
  return -1;
}

// The creator hands over the menu; the bar owns it from here on.
BarState* MakeBar(HWND, const CREATESTRUCTW& create) {
  auto menu = static_cast<HMENU>(create.lpCreateParams);
  if (menu == nullptr) return nullptr;
  HFONT font = CreateFontW(-(create.cy * 9 / 20), 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                           ANTIALIASED_QUALITY, 0, L"Tahoma");
  auto* state = new BarState{};
  state->owner = create.hwndParent;
  state->menu = menu;
  state->font = font;
  return state;
}

void FreeBar(BarState* state) {
  DestroyMenu(state->menu);
  DeleteObject(state->font);
  if (state->images) DeleteObject(state->images);
  delete state;
}

void DrawImage(HDC dc, const BarState& state, const Button& button) {
  int size = ImageSize(state);
  HDC memory = CreateCompatibleDC(dc);
  HGDIOBJ old = SelectObject(memory, state.images);
  int x = (button.area.left + button.area.right - size) / 2, y = (button.area.top + button.area.bottom - size) / 2;
  GdiTransparentBlt(dc, x, y, size, size, memory, button.image * size, 0, size, size, state.mask);
  SelectObject(memory, old);
  DeleteDC(memory);
}

// A pressed button shows inverted, as a tapped bar button does on the device.
void OnPaint(HWND bar, const BarState& state) {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(bar, &paint);
  RECT line;
  GetClientRect(bar, &line);
  line.bottom = 1;
  FillRect(dc, &line, GetSysColorBrush(COLOR_BTNSHADOW));
  HGDIOBJ oldFont = SelectObject(dc, state.font);
  SetBkMode(dc, TRANSPARENT);
  for (size_t i = 0; i < state.buttons.size(); ++i) {
    const Button& button = state.buttons[i];
    bool pressed = static_cast<int>(i) == state.pressed;
    FillRect(dc, &button.area, GetSysColorBrush(pressed ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
    SetTextColor(dc, GetSysColor(pressed ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT));
    RECT text = button.area;
    if (button.image < 0) DrawTextW(dc, button.text.c_str(), -1, &text, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    else if (state.images) DrawImage(dc, state, button);
  }
  SelectObject(dc, oldFont);
  EndPaint(bar, &paint);
}

void Press(HWND bar, BarState& state, int index) {
  state.pressed = index;
  InvalidateRect(bar, nullptr, FALSE);
  UpdateWindow(bar);
}

// The popup opens above its button; the button stays pressed while it is open.
void OpenPopup(HWND bar, BarState& state, const Button& button) {
  POINT corner = {button.area.left, 0};
  ClientToScreen(bar, &corner);
  TrackPopupMenu(GetSubMenu(state.menu, button.popup), TPM_LEFTALIGN | TPM_BOTTOMALIGN, corner.x, corner.y, 0,
                 state.owner, nullptr);
}

void OnTapDown(HWND bar, BarState& state, LPARAM position) {
  int index = ButtonAt(state, position);
  if (index < 0) return;
  SetCapture(bar);
  Press(bar, state, index);
}

void OnTapUp(HWND bar, BarState& state, LPARAM position) {
  int index = state.pressed;
  if (GetCapture() == bar) ReleaseCapture();
  if (index < 0 || ButtonAt(state, position) != index) {
    Press(bar, state, -1);
    return;
  }
  Button button = state.buttons[index];
  if (button.popup >= 0) OpenPopup(bar, state, button);
  Press(bar, state, -1);
  if (button.popup < 0) SendMessageW(state.owner, WM_COMMAND, MAKEWPARAM(button.command, 0), 0);
}

LRESULT MenuBarProc(HWND bar, BarState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      AddPopupButtons(bar, state);
      return 0;
    case WM_PAINT:
      OnPaint(bar, state);
      return 0;
    case WM_LBUTTONDOWN:
      OnTapDown(bar, state, lParam);
      return 0;
    case WM_LBUTTONUP:
      OnTapUp(bar, state, lParam);
      return 0;
    case kMenuBarGetMenu:
      return reinterpret_cast<LRESULT>(state.menu);
    case TB_ADDBUTTONSW:
      return AddCommandButtons(bar, state, static_cast<int>(wParam), reinterpret_cast<const TBBUTTON*>(lParam));
    case TB_GETRECT:
      return ButtonRect(state, static_cast<int>(wParam), reinterpret_cast<RECT*>(lParam));
  }
  return DefWindowProcW(bar, message, wParam, lParam);
}

}  // namespace

HWND CreateMenuBar(HWND owner, HINSTANCE menuModule, UINT menuId) {
  HMENU menu = menuId == 0 ? CreateMenu() : menuModule ? LoadMenuW(menuModule, MAKEINTRESOURCEW(menuId)) : nullptr;
  if (menu == nullptr) return nullptr;
  HINSTANCE instance = GetModuleHandleW(nullptr);
  RegisterControlClass(instance, kClassName, ControlProc<BarState, MakeBar, MenuBarProc, FreeBar>,
                       GetSysColorBrush(COLOR_BTNFACE));
  RECT area = Screen().MenuBar();
  HWND bar = CreateWindowExW(WS_EX_NOACTIVATE, kClassName, L"", WS_POPUP | WS_VISIBLE, area.left, area.top,
                             area.right - area.left, area.bottom - area.top, owner, nullptr, instance, menu);
  // A bar that failed after taking the menu over has destroyed it already.
  if (bar == nullptr && IsMenu(menu)) DestroyMenu(menu);
  return bar;
}

bool SetMenuBarImages(HWND bar, HINSTANCE module, UINT bitmapId, COLORREF mask) {
  BarState* state = IsWindow(bar) ? ControlState<BarState>(bar) : nullptr;
  if (state == nullptr) return false;
  auto images = static_cast<HBITMAP>(
      LoadImageW(module, MAKEINTRESOURCEW(bitmapId), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
  if (images == nullptr) return false;
  if (state->images) DeleteObject(state->images);
  state->images = images;
  state->mask = mask;
  return true;
}

int MenuBarImageSize(HWND bar) {
  BarState* state = IsWindow(bar) ? ControlState<BarState>(bar) : nullptr;
  return state ? ImageSize(*state) : 0;
}

}  // namespace tw::device
