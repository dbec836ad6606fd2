// The device's title strip: the owner's title on the left, the round OK
// button on the right. A tap on OK sends the owner command 1, as the
// WS_EX_CAPTIONOKBTN style does on the device.
#include <windows.h>

#include "platform/win32/device.h"

namespace tw::device {
namespace {

constexpr wchar_t kClassName[] = L"TwDeviceTitleStrip";
constexpr COLORREF kStripColour = RGB(0x1C, 0x3E, 0x94);
constexpr COLORREF kTextColour = RGB(0xFF, 0xFF, 0xFF);

struct StripState {
  HWND owner;
  HFONT font;
  HFONT smallFont;  // the OK button's
};

StripState* StateOf(HWND strip) { return reinterpret_cast<StripState*>(GetWindowLongPtrW(strip, GWLP_USERDATA)); }

// The OK button is a circle as high as the strip less a margin, at the right.
RECT OkButtonRect(HWND strip) {
  RECT client;
  GetClientRect(strip, &client);
  int margin = client.bottom / 8;
  int side = client.bottom - 2 * margin;
  return {client.right - margin - side, margin, client.right - margin, margin + side};
}

LRESULT OnCreate(HWND strip, const CREATESTRUCTW* create) {
  auto* state = new StripState{static_cast<HWND>(create->lpCreateParams), nullptr, nullptr};
  state->font = CreateFontW(-(create->cy * 9 / 20), 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                            ANTIALIASED_QUALITY, 0, L"Tahoma");
  state->smallFont = CreateFontW(-(create->cy * 7 / 20), 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                                 ANTIALIASED_QUALITY, 0, L"Tahoma");
  SetWindowLongPtrW(strip, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(state));
  return 0;
}

void OnPaint(HWND strip) {
  StripState* state = StateOf(strip);
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(strip, &paint);
  RECT client;
  GetClientRect(strip, &client);
  HBRUSH fill = CreateSolidBrush(kStripColour);
  FillRect(dc, &client, fill);
  DeleteObject(fill);

  HGDIOBJ oldFont = SelectObject(dc, state->font);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, kTextColour);
  RECT ok = OkButtonRect(strip);
  wchar_t title[256] = {};
  GetWindowTextW(state->owner, title, 256);
  RECT text = {client.bottom / 3, 0, ok.left - client.bottom / 4, client.bottom};
  DrawTextW(dc, title, -1, &text, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);

  SelectObject(dc, state->smallFont);
  HPEN pen = CreatePen(PS_SOLID, ok.bottom / 12 + 1, kTextColour);
  HGDIOBJ oldPen = SelectObject(dc, pen);
  HGDIOBJ oldBrush = SelectObject(dc, GetStockObject(NULL_BRUSH));
  Ellipse(dc, ok.left, ok.top, ok.right, ok.bottom);
  DrawTextW(dc, L"ok", -1, &ok, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  SelectObject(dc, oldBrush);
  SelectObject(dc, oldPen);
  DeleteObject(pen);
  SelectObject(dc, oldFont);
  EndPaint(strip, &paint);
}

void OnTap(HWND strip, LPARAM position) {
  POINT at = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
  RECT ok = OkButtonRect(strip);
  if (PtInRect(&ok, at)) SendMessageW(StateOf(strip)->owner, WM_COMMAND, MAKEWPARAM(IDOK, 0), 0);
}

void OnDestroy(HWND strip) {
  StripState* state = StateOf(strip);
  SetWindowLongPtrW(strip, GWLP_USERDATA, 0);
  if (state == nullptr) return;
  DeleteObject(state->font);
  DeleteObject(state->smallFont);
  delete state;
}

LRESULT CALLBACK TitleStripProc(HWND strip, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      return OnCreate(strip, reinterpret_cast<const CREATESTRUCTW*>(lParam));
    case WM_PAINT:
      OnPaint(strip);
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_LBUTTONUP:
      OnTap(strip, lParam);
      return 0;
    case WM_DESTROY:
      OnDestroy(strip);
      return 0;
  }
  return DefWindowProcW(strip, message, wParam, lParam);
}

void RegisterOnce(HINSTANCE instance) {
  WNDCLASSW wc = {};
  if (GetClassInfoW(instance, kClassName, &wc)) return;
  wc.lpfnWndProc = TitleStripProc;
  wc.hInstance = instance;
  wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  wc.lpszClassName = kClassName;
  RegisterClassW(&wc);
}

}  // namespace

HWND CreateTitleStrip(HWND owner) {
  HINSTANCE instance = GetModuleHandleW(nullptr);
  RegisterOnce(instance);
  RECT area = Screen().TitleStrip();
  // Owned, so it stays above its window and goes with it.
  return CreateWindowExW(WS_EX_NOACTIVATE, kClassName, L"", WS_POPUP | WS_VISIBLE, area.left, area.top,
                         area.right - area.left, area.bottom - area.top, owner, nullptr, instance, owner);
}

}  // namespace tw::device
