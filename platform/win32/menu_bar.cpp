// The device's menu bar: a strip along the bottom of the screen holding a
// tool bar. Each top-level popup of the menu resource is a text button that
// opens its popup (the owner sees WM_INITMENUPOPUP and the chosen command);
// image buttons added through the tool bar messages send their commands to
// the owner, as on the device.
#include <windows.h>
#include <commctrl.h>

#include "platform/win32/device.h"

namespace tw::device {
namespace {

constexpr wchar_t kClassName[] = L"TwDeviceMenuBar";
constexpr UINT kFirstPopupCommand = 0xF000;  // far from any command of the program

struct BarState {
  HWND owner;
  HMENU menu;
  HWND toolBar;
  HFONT font;
  int popupCount;
  bool* attached;  // set once the window has taken the state over
};

BarState* StateOf(HWND bar) { return reinterpret_cast<BarState*>(GetWindowLongPtrW(bar, GWLP_USERDATA)); }

void AddPopupButtons(BarState& state) {
  state.popupCount = GetMenuItemCount(state.menu);
  for (int i = 0; i < state.popupCount; ++i) {
    wchar_t text[64] = {};
    GetMenuStringW(state.menu, i, text, 64, MF_BYPOSITION);
    TBBUTTON button = {};
    button.iBitmap = I_IMAGENONE;
    button.idCommand = static_cast<int>(kFirstPopupCommand + i);
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_AUTOSIZE | BTNS_SHOWTEXT;
    button.iString = reinterpret_cast<INT_PTR>(text);
    SendMessageW(state.toolBar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
  }
}

LRESULT OnCreate(HWND bar, const CREATESTRUCTW* create) {
  auto* state = static_cast<BarState*>(create->lpCreateParams);
  *state->attached = true;
  SetWindowLongPtrW(bar, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(state));
  state->toolBar = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                                   WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_LIST | CCS_NORESIZE |
                                       CCS_NOPARENTALIGN | CCS_NODIVIDER,
                                   0, 1, create->cx, create->cy - 1, bar, nullptr, create->hInstance, nullptr);
  if (state->toolBar == nullptr) return -1;
  SendMessageW(state->toolBar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  state->font = CreateFontW(-(create->cy * 9 / 20), 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                            ANTIALIASED_QUALITY, 0, L"Tahoma");
  SendMessageW(state->toolBar, WM_SETFONT, reinterpret_cast<WPARAM>(state->font), FALSE);
  SendMessageW(state->toolBar, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS);
  AddPopupButtons(*state);
  return 0;
}

void OpenPopup(HWND bar, BarState& state, int index) {
  RECT button = {};
  SendMessageW(state.toolBar, TB_GETRECT, kFirstPopupCommand + index, reinterpret_cast<LPARAM>(&button));
  MapWindowPoints(state.toolBar, nullptr, reinterpret_cast<POINT*>(&button), 2);
  RECT area;
  GetWindowRect(bar, &area);
  TrackPopupMenu(GetSubMenu(state.menu, index), TPM_LEFTALIGN | TPM_BOTTOMALIGN, button.left, area.top, 0,
                 state.owner, nullptr);
}

void OnCommand(HWND bar, WPARAM wParam) {
  BarState* state = StateOf(bar);
  UINT command = LOWORD(wParam);
  if (command >= kFirstPopupCommand && command < kFirstPopupCommand + static_cast<UINT>(state->popupCount)) {
    OpenPopup(bar, *state, static_cast<int>(command - kFirstPopupCommand));
    return;
  }
  SendMessageW(state->owner, WM_COMMAND, MAKEWPARAM(command, 0), 0);
}

void OnDestroy(HWND bar) {
  BarState* state = StateOf(bar);
  SetWindowLongPtrW(bar, GWLP_USERDATA, 0);
  if (state == nullptr) return;
  // The bar owns what the program gave it: the menu and the button images.
  auto images = reinterpret_cast<HIMAGELIST>(SendMessageW(state->toolBar, TB_GETIMAGELIST, 0, 0));
  DestroyWindow(state->toolBar);
  if (images != nullptr) ImageList_Destroy(images);
  DestroyMenu(state->menu);
  DeleteObject(state->font);
  delete state;
}

// A line along the top divides the bar from the window above it.
void OnPaint(HWND bar) {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(bar, &paint);
  RECT line;
  GetClientRect(bar, &line);
  line.bottom = 1;
  FillRect(dc, &line, GetSysColorBrush(COLOR_BTNSHADOW));
  EndPaint(bar, &paint);
}

bool IsToolBarMessage(UINT message) { return message >= WM_USER && message < WM_USER + 200; }

LRESULT CALLBACK MenuBarProc(HWND bar, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      return OnCreate(bar, reinterpret_cast<const CREATESTRUCTW*>(lParam));
    case WM_COMMAND:
      OnCommand(bar, wParam);
      return 0;
    case WM_PAINT:
      OnPaint(bar);
      return 0;
    case WM_DESTROY:
      OnDestroy(bar);
      return 0;
  }
  if (message == kMenuBarGetMenu) return reinterpret_cast<LRESULT>(StateOf(bar)->menu);
  if (IsToolBarMessage(message) && StateOf(bar) != nullptr)
    return SendMessageW(StateOf(bar)->toolBar, message, wParam, lParam);
  return DefWindowProcW(bar, message, wParam, lParam);
}

void RegisterOnce(HINSTANCE instance) {
  WNDCLASSW wc = {};
  if (GetClassInfoW(instance, kClassName, &wc)) return;
  wc.lpfnWndProc = MenuBarProc;
  wc.hInstance = instance;
  wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  wc.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  wc.lpszClassName = kClassName;
  RegisterClassW(&wc);
}

}  // namespace

HWND CreateMenuBar(HWND owner, HINSTANCE menuModule, UINT menuId) {
  HMENU menu = menuModule ? LoadMenuW(menuModule, MAKEINTRESOURCEW(menuId)) : nullptr;
  if (menu == nullptr) return nullptr;
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  HINSTANCE instance = GetModuleHandleW(nullptr);
  RegisterOnce(instance);
  bool attached = false;
  auto* state = new BarState{owner, menu, nullptr, nullptr, 0, &attached};
  RECT area = Screen().MenuBar();
  HWND bar = CreateWindowExW(WS_EX_NOACTIVATE, kClassName, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN,
                             area.left, area.top, area.right - area.left, area.bottom - area.top, owner, nullptr,
                             instance, state);
  // A window that failed after WM_CREATE has let go of the state in WM_DESTROY.
  if (bar == nullptr && !attached) {
    DestroyMenu(menu);
    delete state;
  }
  return bar;
}

}  // namespace tw::device
