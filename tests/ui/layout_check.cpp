#include "tests/ui/layout_check.h"

#include <algorithm>

namespace tw::test {
namespace {

RECT InParent(HWND control) {
  RECT area;
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&area), 2);
  return area;
}

bool Contains(const RECT& outer, const RECT& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

// "<class> #<id> '<text>' (l,t)-(r,b)" in the parent's client coordinates.
std::string DescribeControl(HWND control) {
  wchar_t name[64] = {}, text[64] = {};
  GetClassNameW(control, name, 64);
  GetWindowTextW(control, text, 64);
  char narrow[512] = {};
  WideCharToMultiByte(CP_UTF8, 0, (std::wstring(name) + L" #" + std::to_wstring(GetDlgCtrlID(control)) + L" '" +
                                   text + L"'").c_str(), -1, narrow, sizeof narrow, nullptr, nullptr);
  RECT area = InParent(control);
  return narrow + (" (" + std::to_string(area.left) + "," + std::to_string(area.top) + ")-(" +
                   std::to_string(area.right) + "," + std::to_string(area.bottom) + ")");
}

// A label or button whose text needs more room than the control gives it.
// Fonts are only readable in their own process.
bool TextCutOff(HWND control) {
  wchar_t name[32] = {}, text[512] = {};
  DWORD process = 0;
  GetWindowThreadProcessId(control, &process);
  GetClassNameW(control, name, 32);
  bool isStatic = lstrcmpiW(name, L"Static") == 0, isButton = lstrcmpiW(name, L"Button") == 0;
  if ((!isStatic && !isButton) || process != GetCurrentProcessId() || GetWindowTextW(control, text, 512) == 0)
    return false;
  LONG style = GetWindowLongW(control, GWL_STYLE);
  if (isStatic && (style & SS_TYPEMASK) > SS_RIGHT) return false;  // pictures, frames, owner-drawn
  RECT room;
  GetClientRect(control, &room);
  if (isButton) {
    LONG kind = style & BS_TYPEMASK;
    if (kind == BS_GROUPBOX || kind == BS_OWNERDRAW) return false;
    if (kind != BS_PUSHBUTTON && kind != BS_DEFPUSHBUTTON) room.right -= GetSystemMetrics(SM_CXMENUCHECK) + 4;
    else InflateRect(&room, -4, -3);  // the push button's edge
  }
  HDC dc = GetDC(control);
  HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
  RECT needed = {0, 0, room.right - room.left, 0};
  bool wraps = isStatic ? !(style & SS_LEFTNOWORDWRAP) && (style & SS_TYPEMASK) != SS_SIMPLE : style & BS_MULTILINE;
  DrawTextW(dc, text, -1, &needed, DT_CALCRECT | DT_NOPREFIX | (wraps ? DT_WORDBREAK : DT_SINGLELINE));
  SelectObject(dc, old);
  ReleaseDC(control, dc);
  return needed.right > room.right - room.left || needed.bottom > room.bottom - room.top;
}

void Check(HWND parent, std::vector<std::string>& faults) {
  RECT client;
  GetClientRect(parent, &client);
  std::vector<HWND> children;
  for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    if (IsWindowVisible(child)) children.push_back(child);
  for (size_t i = 0; i < children.size(); ++i) {
    RECT area = InParent(children[i]);
    if (area.right <= area.left || area.bottom <= area.top)
      faults.push_back(DescribeControl(children[i]) + " has no area");
    else if (!Contains(client, area))
      faults.push_back(DescribeControl(children[i]) + " leaves its parent's client area (0,0)-(" +
                       std::to_string(client.right) + "," + std::to_string(client.bottom) + ")");
    if (TextCutOff(children[i])) faults.push_back(DescribeControl(children[i]) + " cuts its text off");
    for (size_t j = i + 1; j < children.size(); ++j) {
      RECT other = InParent(children[j]), common;
      if (IntersectRect(&common, &area, &other))
        faults.push_back(DescribeControl(children[i]) + " overlaps " + DescribeControl(children[j]));
    }
    Check(children[i], faults);
  }
}

}  // namespace

std::vector<std::string> CheckLayout(HWND window) {
  std::vector<std::string> faults;
  Check(window, faults);
  return faults;
}

}  // namespace tw::test
