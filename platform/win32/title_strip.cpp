// The device's title strip: the window's title on the left and the round OK
// button on the right, along the window's top edge. A tap on OK sends the
// window command 1, as the WS_EX_CAPTIONOKBTN style does on the device.
// The strip is the window's own non-client area, drawn by a subclass of its
// procedure: a window of its own would cost Wine an X window more at start-up.
#include <windows.h>

#include <algorithm>

#include "platform/win32/device.h"

namespace tw::device {
namespace {

constexpr wchar_t kStateProperty[] = L"TwTitleStrip";
constexpr COLORREF kStripColour = RGB(0x1C, 0x3E, 0x94);
constexpr COLORREF kTextColour = RGB(0xFF, 0xFF, 0xFF);
// What a point on the strip hits: no system meaning, so nothing moves or sizes the window.
constexpr LRESULT kHitStrip = HTOBJECT;

struct StripState {
  WNDPROC original;
  int height;
  HFONT font;
  HFONT smallFont;  // the OK button's
};

StripState* StateOf(HWND window) { return static_cast<StripState*>(GetPropW(window, kStateProperty)); }

// In window coordinates.
RECT StripRect(HWND window, const StripState& state) {
  RECT area;
  GetWindowRect(window, &area);
  return {0, 0, area.right - area.left, state.height};
}

// The OK button is a circle as high as the strip less a margin, at the right.
RECT OkButtonRect(const RECT& strip) {
  int margin = strip.bottom / 8;
  int side = strip.bottom - 2 * margin;
  return {strip.right - margin - side, margin, strip.right - margin, margin + side};
}

void PaintStrip(HWND window, const StripState& state) {
  if (!IsWindowVisible(window)) return;
  HDC dc = GetWindowDC(window);
  if (dc == nullptr) return;
  RECT strip = StripRect(window, state);
  HBRUSH fill = CreateSolidBrush(kStripColour);
  FillRect(dc, &strip, fill);
  DeleteObject(fill);

  HGDIOBJ oldFont = SelectObject(dc, state.font);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, kTextColour);
  RECT ok = OkButtonRect(strip);
  wchar_t title[256] = {};
  GetWindowTextW(window, title, 256);
  RECT text = {strip.bottom / 3, 0, ok.left - strip.bottom / 4, strip.bottom};
  DrawTextW(dc, title, -1, &text, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);

  SelectObject(dc, state.smallFont);
  HPEN pen = CreatePen(PS_SOLID, ok.bottom / 12 + 1, kTextColour);
  HGDIOBJ oldPen = SelectObject(dc, pen);
  HGDIOBJ oldBrush = SelectObject(dc, GetStockObject(NULL_BRUSH));
  Ellipse(dc, ok.left, ok.top, ok.right, ok.bottom);
  DrawTextW(dc, L"ok", -1, &ok, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  SelectObject(dc, oldBrush);
  SelectObject(dc, oldPen);
  DeleteObject(pen);
  SelectObject(dc, oldFont);
  ReleaseDC(window, dc);
}

// The point of a non-client mouse message, in window coordinates.
POINT InWindow(HWND window, LPARAM position) {
  RECT area;
  GetWindowRect(window, &area);
  return {static_cast<short>(LOWORD(position)) - area.left, static_cast<short>(HIWORD(position)) - area.top};
}

LRESULT OnHitTest(HWND window, const StripState& state, WPARAM wParam, LPARAM lParam) {
  RECT strip = StripRect(window, state);
  POINT at = InWindow(window, lParam);
  if (PtInRect(&strip, at)) return kHitStrip;
  return CallWindowProcW(state.original, window, WM_NCHITTEST, wParam, lParam);
}

void OnTap(HWND window, const StripState& state, LPARAM position) {
  RECT ok = OkButtonRect(StripRect(window, state));
  POINT at = InWindow(window, position);
  if (PtInRect(&ok, at)) SendMessageW(window, WM_COMMAND, MAKEWPARAM(IDOK, 0), 0);
}

void Detach(HWND window, StripState* state) {
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(state->original));
  RemovePropW(window, kStateProperty);
  DeleteObject(state->font);
  DeleteObject(state->smallFont);
  delete state;
}

LRESULT CALLBACK TitleStripProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  StripState* state = StateOf(window);
  if (state == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  WNDPROC original = state->original;
  switch (message) {
    case WM_NCCALCSIZE: {
      LRESULT result = CallWindowProcW(original, window, message, wParam, lParam);
      RECT* client = wParam ? &reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0] : reinterpret_cast<RECT*>(lParam);
      client->top = std::min(client->top + state->height, client->bottom);
      return result;
    }
    case WM_NCHITTEST:
      return OnHitTest(window, *state, wParam, lParam);
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONDBLCLK:
      if (wParam == kHitStrip) return 0;
      break;
    case WM_NCLBUTTONUP:
      if (wParam != kHitStrip) break;
      OnTap(window, *state, lParam);
      return 0;
    case WM_NCPAINT:
    case WM_SETTEXT: {
      LRESULT result = CallWindowProcW(original, window, message, wParam, lParam);
      PaintStrip(window, *state);
      return result;
    }
    case WM_WINDOWPOSCHANGED: {
      LRESULT result = CallWindowProcW(original, window, message, wParam, lParam);
      // A resize "without repainting" still keeps the strip.
      auto* position = reinterpret_cast<const WINDOWPOS*>(lParam);
      if ((position->flags & SWP_NOREDRAW) && !(position->flags & SWP_NOSIZE)) PaintStrip(window, *state);
      return result;
    }
    case WM_NCDESTROY:
      Detach(window, state);
      break;
  }
  return CallWindowProcW(original, window, message, wParam, lParam);
}

}  // namespace

bool AttachTitleStrip(HWND window) {
  if (!IsWindow(window) || StateOf(window) != nullptr) return false;
  int height = Screen().strip;
  auto* state = new StripState{nullptr, height,
                               CreateFontW(-(height * 9 / 20), 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                                           ANTIALIASED_QUALITY, 0, L"Tahoma"),
                               CreateFontW(-(height * 7 / 20), 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                                           ANTIALIASED_QUALITY, 0, L"Tahoma")};
  SetPropW(window, kStateProperty, state);
  state->original = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(TitleStripProc)));
  RECT area;
  GetWindowRect(window, &area);
  SetWindowPos(window, nullptr, area.left, area.top - height, area.right - area.left, area.bottom - area.top + height,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  return true;
}

}  // namespace tw::device
