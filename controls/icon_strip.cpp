#include "controls/icon_strip.h"

#include <windowsx.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/scaling.h"
#include "controls/tool_tip.h"
#include "platform/win32/control_state.h"
#include "platform/win32/wide.h"
#include "resources/string_ids.h"

namespace tw {
namespace {

// The tip shows once the stylus has stayed down this long, and goes after the second delay.
constexpr UINT_PTR kShowTipTimer = 9979, kEndTipTimer = 9980;
constexpr UINT kShowTipMs = 350, kEndTipMs = 3200;

// Layout at 96 dpi.
constexpr int kCell = 16, kHeight = 17, kImageInset = 2, kMenuOffset = 18;
constexpr COLORREF kBackground = RGB(20, 20, 50), kOnColour = RGB(243, 243, 243), kOffColour = RGB(80, 90, 170);
constexpr COLORREF kLockTint = RGB(190, 190, 190);
constexpr int kLockOpacity = 200;

struct Item {
  std::uint32_t identifier;
  int state;
  std::wstring name;
  std::unique_ptr<SkinImage> image;
  int position;
};

struct StripState {
  HWND owner;
  HINSTANCE instance;
  LPARAM commandValue;
  bool collapsed;
  const TextLibrary* texts;
  std::vector<Item> items{};  // by position
  HWND tip = nullptr;
};

struct StripCreation {
  LPARAM commandValue;
  bool collapsed;
  const TextLibrary* texts;
};

StripState* MakeStrip(HWND, const CREATESTRUCTW& create) {
  auto creation = static_cast<const StripCreation*>(create.lpCreateParams);
  if (creation == nullptr) return nullptr;
  return new StripState{create.hwndParent, create.hInstance, creation->commandValue, creation->collapsed,
                        creation->texts};
}

Item* Find(StripState& state, std::uint32_t identifier) {
  auto found = std::find_if(state.items.begin(), state.items.end(),
                            [identifier](const Item& item) { return item.identifier == identifier; });
  return found != state.items.end() ? &*found : nullptr;
}

RECT Cell(const RECT& client, int index) {
  return {ScaleX(1 + index * kCell), ScaleY(1), ScaleX((index + 1) * kCell), client.bottom - ScaleY(1)};
}

void FillSolid(HDC dc, const RECT& area, COLORREF colour) {
  SetBkColor(dc, colour);
  ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

void DrawImage(HDC dc, const RECT& cell, const Item& item) {
  if (item.image) DrawSkinImage(*item.image, dc, cell.left + ScaleX(kImageInset), cell.top + ScaleY(kImageInset));
}

void DrawExpanded(HDC dc, const StripState& state, const RECT& client) {
  for (size_t i = 0; i < state.items.size(); ++i) {
    const Item& item = state.items[i];
    RECT cell = Cell(client, static_cast<int>(i));
    FillSolid(dc, cell, item.state != kIconStripOff ? kOnColour : kOffColour);
    DrawImage(dc, cell, item);
    if (item.state == kIconStripLocked)
      TintRect(dc, cell.left, cell.top, cell.right - cell.left, cell.bottom - cell.top, kLockTint, kLockOpacity);
  }
}

// The one cell shows the item the menu has chosen: the first that is off.
void DrawCollapsed(HDC dc, const StripState& state, const RECT& client) {
  RECT cell = Cell(client, 0);
  FillSolid(dc, cell, kOnColour);
  auto chosen = std::find_if(state.items.begin(), state.items.end(),
                             [](const Item& item) { return item.state == kIconStripOff; });
  if (chosen != state.items.end()) DrawImage(dc, cell, *chosen);
}

void OnPaint(HWND strip, const StripState& state) {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(strip, &paint);
  RECT client;
  GetClientRect(strip, &client);
  OffscreenSurface surface;
  HDC target = surface.Create(dc, std::max<int>(client.right, 1), std::max<int>(client.bottom, 1)) ? surface.dc() : dc;
  FillSolid(target, client, kBackground);
  state.collapsed ? DrawCollapsed(target, state, client) : DrawExpanded(target, state, client);
  if (target != dc) BitBlt(dc, 0, 0, client.right, client.bottom, target, 0, 0, SRCCOPY);
  EndPaint(strip, &paint);
}

void NotifyOwner(HWND strip, const StripState& state) {
  InvalidateRect(strip, nullptr, FALSE);
  SendMessageW(state.owner, WM_COMMAND, kIconStripChanged, state.commandValue);
}

void EndTip(HWND strip, StripState& state) {
  KillTimer(strip, kShowTipTimer);
  KillTimer(strip, kEndTipTimer);
  if (state.tip) DestroyWindow(state.tip);
  state.tip = nullptr;
}

// The tip waits, hidden, so that a quick tap shows none.
void StartTip(HWND strip, StripState& state, const Item& item, POINT tap) {
  EndTip(strip, state);
  if (item.name.empty()) return;
  ClientToScreen(strip, &tap);
  state.tip = CreateToolTip(state.instance, GetAncestor(strip, GA_ROOT), item.name, tap);
  if (state.tip == nullptr) return;
  SetTimer(strip, kShowTipTimer, kShowTipMs, nullptr);
  SetTimer(strip, kEndTipTimer, kEndTipMs, nullptr);
}

void OnTap(HWND strip, StripState& state, LPARAM point) {
  SetCapture(strip);
  POINT tap = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  int index = tap.x / ScaleX(kCell);
  auto item = std::find_if(state.items.begin(), state.items.end(),
                           [index](const Item& candidate) { return candidate.position == index; });
  if (item != state.items.end()) {
    if (item->state != kIconStripLocked) item->state = item->state == kIconStripOff ? kIconStripOn : kIconStripOff;
    StartTip(strip, state, *item, tap);
  }
  NotifyOwner(strip, state);
}

std::wstring NoneText(const StripState& state) {
  char16_t text[128] = {};
  if (state.texts) state.texts->Lookup(kNoneChoiceText, text, 128);
  return AsWide(text);
}

// The choice comes back as a WM_COMMAND once the menu has closed.
void ShowChoiceMenu(HWND strip, const StripState& state) {
  HMENU menu = CreatePopupMenu();
  if (menu == nullptr) return;
  bool anyOff = std::any_of(state.items.begin(), state.items.end(),
                            [](const Item& item) { return item.state == kIconStripOff; });
  AppendMenuW(menu, MF_STRING | (anyOff ? 0 : MF_CHECKED), kIconStripNoneCommand, NoneText(state).c_str());
  for (const Item& item : state.items)
    if (item.position < kIconStripMenuItems)
      AppendMenuW(menu, MF_STRING | (item.state == kIconStripOff ? MF_CHECKED : 0),
                  kIconStripFirstItemCommand + item.position, item.name.c_str());
  POINT corner = {0, ScaleY(kMenuOffset)};
  ClientToScreen(strip, &corner);
  TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_TOPALIGN, corner.x, corner.y, 0, strip, nullptr);
  DestroyMenu(menu);
}

void OnPress(HWND strip, StripState& state, LPARAM point) {
  if (state.collapsed)
    ShowChoiceMenu(strip, state);
  else
    OnTap(strip, state, point);
}

// A tip is seen only while the stylus stays down.
void OnRelease(HWND strip, StripState& state) {
  if (GetCapture() == strip) ReleaseCapture();
  EndTip(strip, state);
}

void OnTimer(HWND strip, StripState& state, UINT_PTR timer) {
  if (timer == kShowTipTimer) {
    KillTimer(strip, timer);
    if (state.tip) ShowWindow(state.tip, SW_SHOWNOACTIVATE);
  } else if (timer == kEndTipTimer) {
    EndTip(strip, state);
  }
}

// Choosing an item turns it off and every other item, locked or not, on;
// the first entry turns them all on.
void OnMenuChoice(HWND strip, StripState& state, UINT command) {
  bool none = command == kIconStripNoneCommand;
  bool item = command >= kIconStripFirstItemCommand && command < kIconStripFirstItemCommand + kIconStripMenuItems;
  if (!none && !item) return;
  for (Item& entry : state.items)
    entry.state = !none && entry.position == static_cast<int>(command - kIconStripFirstItemCommand) ? kIconStripOff
                                                                                                   : kIconStripOn;
  NotifyOwner(strip, state);
}

void FitWidth(HWND strip, const StripState& state) {
  int cells = state.collapsed ? 1 : static_cast<int>(state.items.size());
  SetWindowPos(strip, nullptr, 0, 0, ScaleX(1 + cells * kCell), ScaleY(kHeight),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT AddItem(HWND strip, StripState& state, std::uint32_t identifier, const IconStripItem* added) {
  if (added == nullptr) return FALSE;
  int position = static_cast<int>(state.items.size());
  state.items.push_back({identifier, added->off ? kIconStripOff : kIconStripOn, std::wstring(added->name),
                         std::unique_ptr<SkinImage>(added->image), position});
  FitWidth(strip, state);
  InvalidateRect(strip, nullptr, FALSE);
  return TRUE;
}

void SetState(HWND strip, StripState& state, std::uint32_t identifier, int newState) {
  if (Item* item = Find(state, identifier)) item->state = newState;
  InvalidateRect(strip, nullptr, FALSE);
}

LRESULT GetState(StripState& state, std::uint32_t identifier) {
  const Item* item = Find(state, identifier);
  return item ? item->state : kIconStripOn;
}

LRESULT StripProc(HWND strip, StripState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      FitWidth(strip, state);
      return 0;
    case WM_PAINT:
      OnPaint(strip, state);
      return 0;
    case WM_LBUTTONDOWN:
      OnPress(strip, state, lParam);
      return 0;
    case WM_LBUTTONUP:
      OnRelease(strip, state);
      return 0;
    case WM_TIMER:
      OnTimer(strip, state, wParam);
      return 0;
    case WM_COMMAND:
      OnMenuChoice(strip, state, LOWORD(wParam));
      return 0;
    case WM_DESTROY:
      EndTip(strip, state);
      return 0;
    case kIconStripAddItem:
      return AddItem(strip, state, static_cast<std::uint32_t>(wParam), reinterpret_cast<const IconStripItem*>(lParam));
    case kIconStripSetOn:
      SetState(strip, state, static_cast<std::uint32_t>(wParam), kIconStripOn);
      return 0;
    case kIconStripLock:
      SetState(strip, state, static_cast<std::uint32_t>(wParam), kIconStripLocked);
      return 0;
    case kIconStripGetState:
      return GetState(state, static_cast<std::uint32_t>(wParam));
  }
  return DefWindowProcW(strip, message, wParam, lParam);
}

}  // namespace

HWND CreateIconStrip(HINSTANCE instance, HWND owner, POINT origin, const wchar_t* className, LPARAM commandValue,
                     bool collapsed, const TextLibrary* texts) {
  if (className == nullptr || owner == nullptr) return nullptr;
  if (!RegisterControlClass(instance, className, ControlProc<StripState, MakeStrip, StripProc>,
                            static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)), CS_HREDRAW | CS_VREDRAW))
    return nullptr;
  StripCreation creation = {commandValue, collapsed, texts};
  return CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE, origin.x, origin.y, ScaleX(1 + kCell),
                         ScaleY(kHeight), owner, nullptr, instance, &creation);
}

}  // namespace tw
