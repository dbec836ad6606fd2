#include "controls/tool_tip.h"

#include <algorithm>
#include <string>

#include "base/scaling.h"
#include "platform/win32/control_state.h"

namespace tw {
namespace {

constexpr COLORREF kFrameColour = RGB(20, 10, 20), kFillColour = RGB(247, 246, 220);
constexpr int kFontHeight = 12, kPaddingWidth = 10, kPaddingHeight = 8, kGap = 2;

struct TipState {
  std::wstring text;
  HFONT font;
};

TipState* MakeTip(HWND, const CREATESTRUCTW& create) {
  auto text = static_cast<const std::wstring*>(create.lpCreateParams);
  if (text == nullptr) return nullptr;
  HFONT font = CreateFontW(ScaleY(kFontHeight), 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                           ANTIALIASED_QUALITY, 0, L"Tahoma");
  return new TipState{*text, font};
}

void FreeTip(TipState* state) {
  if (state->font) DeleteObject(state->font);
  delete state;
}

SIZE MeasureText(HWND tip, const TipState& state) {
  HDC dc = GetDC(tip);
  HGDIOBJ old = SelectObject(dc, state.font);
  SIZE extent = {};
  GetTextExtentPoint32W(dc, state.text.c_str(), static_cast<int>(state.text.size()), &extent);
  SelectObject(dc, old);
  ReleaseDC(tip, dc);
  return extent;
}

void OnPaint(HWND tip, const TipState& state) {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(tip, &paint);
  RECT area;
  GetClientRect(tip, &area);
  HBRUSH frame = CreateSolidBrush(kFrameColour), fill = CreateSolidBrush(kFillColour);
  FillRect(dc, &area, frame);
  RECT inside = {area.left + 1, area.top + 1, area.right - 1, area.bottom - 1};
  FillRect(dc, &inside, fill);
  DeleteObject(frame);
  DeleteObject(fill);
  HGDIOBJ old = SelectObject(dc, state.font);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, kFrameColour);
  DrawTextW(dc, state.text.c_str(), static_cast<int>(state.text.size()), &area,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  SelectObject(dc, old);
  EndPaint(tip, &paint);
}

LRESULT TipProc(HWND tip, TipState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      OnPaint(tip, state);
      return 0;
    case WM_MOUSEACTIVATE:
      return MA_NOACTIVATE;
  }
  return DefWindowProcW(tip, message, wParam, lParam);
}

}  // namespace

HWND CreateToolTip(HINSTANCE instance, HWND owner, std::wstring_view text, POINT point) {
  if (!RegisterControlClass(instance, kToolTipClass, ControlProc<TipState, MakeTip, TipProc, FreeTip>,
                            static_cast<HBRUSH>(GetStockObject(NULL_BRUSH))))
    return nullptr;
  std::wstring copy(text);
  HWND tip = CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE, kToolTipClass, copy.c_str(), WS_POPUP,
                             0, 0, 0, 0, owner, nullptr, instance, &copy);
  if (tip == nullptr) return nullptr;
  SIZE extent = MeasureText(tip, *ControlState<TipState>(tip));
  int width = extent.cx + ScaleX(kPaddingWidth), height = extent.cy + ScaleY(kPaddingHeight);
  // Above and left of the point, but never off the top or left of the screen.
  int x = std::max<int>(point.x - width - ScaleX(kGap), 0), y = std::max<int>(point.y - height - ScaleY(kGap), 0);
  SetWindowPos(tip, HWND_TOPMOST, x, y, width, height, SWP_NOACTIVATE);
  return tip;
}

}  // namespace tw
