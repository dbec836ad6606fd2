#include "tests/ui/layout_check.h"

#include <commctrl.h>

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
  RECT area = InParent(control);
  return Narrow(std::wstring(name) + L" #" + std::to_wstring(GetDlgCtrlID(control)) + L" '" + text + L"'") + " (" +
         std::to_string(area.left) + "," + std::to_string(area.top) + ")-(" + std::to_string(area.right) + "," +
         std::to_string(area.bottom) + ")";
}

// Measures texts in one control's own font, as the control draws them.
class TextMeasure {
 public:
  explicit TextMeasure(HWND control) : control_(control), dc_(GetDC(control)) {
    old_ = SelectObject(dc_, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
  }
  ~TextMeasure() {
    SelectObject(dc_, old_);
    ReleaseDC(control_, dc_);
  }
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;
  // The size the text takes on one line, or wrapped at the given width.
  SIZE Needed(const std::wstring& text, int wrapWidth = 0) {
    RECT needed = {0, 0, wrapWidth, 0};
    DrawTextW(dc_, text.c_str(), -1, &needed,
              DT_CALCRECT | DT_NOPREFIX | (wrapWidth > 0 ? DT_WORDBREAK : DT_SINGLELINE));
    return {needed.right, needed.bottom};
  }

 private:
  HWND control_;
  HDC dc_;
  HGDIOBJ old_;
};

std::wstring WindowText(HWND control) {
  wchar_t text[512] = {};
  GetWindowTextW(control, text, 512);
  return text;
}

using CutTexts = std::vector<std::wstring>;

// Records a text with the room it needs and the room it has, in pixels.
void CutIfShort(CutTexts& cut, const std::wstring& text, int needed, int room, const wchar_t* how = L"") {
  if (needed > room)
    cut.push_back(L"'" + text + L"'" + how + L" (needs " + std::to_wstring(needed) + L", has " + std::to_wstring(room) +
                  L")");
}

// Labels wrap unless told not to; buttons wrap only when multi-line.
void CheckLabelOrButton(HWND control, bool isButton, CutTexts& cut) {
  std::wstring text = WindowText(control);
  LONG style = GetWindowLongW(control, GWL_STYLE);
  if (text.empty() || (!isButton && (style & SS_TYPEMASK) > SS_RIGHT)) return;  // pictures, frames, owner-drawn
  RECT room;
  GetClientRect(control, &room);
  if (isButton) {
    LONG kind = style & BS_TYPEMASK;
    if (kind == BS_GROUPBOX || kind == BS_OWNERDRAW) return;
    if (kind != BS_PUSHBUTTON && kind != BS_DEFPUSHBUTTON) room.right -= GetSystemMetrics(SM_CXMENUCHECK) + 4;
    else InflateRect(&room, -4, -3);  // the push button's edge
  }
  int width = room.right - room.left;
  bool wraps = isButton ? (style & BS_MULTILINE) != 0
                        : !(style & SS_LEFTNOWORDWRAP) && (style & SS_TYPEMASK) != SS_SIMPLE;
  SIZE needed = TextMeasure(control).Needed(text, wraps ? width : 0);
  CutIfShort(cut, text, needed.cx, width);
  CutIfShort(cut, text, needed.cy, room.bottom - room.top, L" in height");
}

// The selection on the closed box, and every entry in the open list.
void CheckComboBox(HWND combo, CutTexts& cut) {
  COMBOBOXINFO info = {};
  info.cbSize = sizeof info;
  if (!GetComboBoxInfo(combo, &info)) return;
  TextMeasure measure(combo);
  int face = info.rcItem.right - info.rcItem.left;
  std::wstring selection = WindowText(combo);
  if (!selection.empty()) CutIfShort(cut, selection, measure.Needed(selection).cx, face);
  // The list's own border and the text's margin in each line.
  int entryRoom = int(SendMessageW(combo, CB_GETDROPPEDWIDTH, 0, 0)) - 2 * GetSystemMetrics(SM_CXBORDER) - 4;
  int count = int(SendMessageW(combo, CB_GETCOUNT, 0, 0));
  if (count > int(SendMessageW(combo, CB_GETMINVISIBLE, 0, 0))) entryRoom -= GetSystemMetrics(SM_CXVSCROLL);
  for (int i = 0; i < count; ++i) {
    wchar_t entry[512] = {};
    if (SendMessageW(combo, CB_GETLBTEXTLEN, i, 0) >= 512) continue;
    SendMessageW(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(entry));
    CutIfShort(cut, entry, measure.Needed(entry).cx, entryRoom);
  }
}

// Every item and sub-item in its column, and the column headers if shown.
void CheckListView(HWND list, CutTexts& cut) {
  LONG style = GetWindowLongW(list, GWL_STYLE);
  if ((style & LVS_TYPEMASK) != LVS_REPORT) return;
  TextMeasure measure(list);
  HWND header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
  int columns = header ? int(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0)) : 1;
  // The margin each side of a label, as the list view keeps it.
  const int margin = 2 * GetSystemMetrics(SM_CXEDGE);
  for (int column = 0; column < columns; ++column) {
    wchar_t text[512] = {};
    LVCOLUMNW about = {};
    about.mask = LVCF_TEXT;
    about.pszText = text;
    about.cchTextMax = 512;
    SendMessageW(list, LVM_GETCOLUMNW, column, reinterpret_cast<LPARAM>(&about));
    int columnWidth = int(SendMessageW(list, LVM_GETCOLUMNWIDTH, column, 0));
    if (!(style & LVS_NOCOLUMNHEADER) && text[0] != 0)
      CutIfShort(cut, text, measure.Needed(text).cx + 2 * margin, columnWidth);
    for (int row = 0, rows = int(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)); row < rows; ++row) {
      LVITEMW item = {};
      item.iSubItem = column;
      item.pszText = text;
      item.cchTextMax = 512;
      text[0] = 0;
      SendMessageW(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
      RECT label = {};
      label.left = LVIR_LABEL;  // which part, and of which column
      label.top = column;
      SendMessageW(list, column == 0 ? LVM_GETITEMRECT : LVM_GETSUBITEMRECT, row, reinterpret_cast<LPARAM>(&label));
      if (text[0] != 0) CutIfShort(cut, text, measure.Needed(text).cx + 2 * margin, label.right - label.left);
    }
  }
}

// A tab squeezed narrower than its label; tabs past the strip's end are
// not cut, its arrows scroll them into view.
void CheckTabStrip(HWND strip, CutTexts& cut) {
  RECT client;
  GetClientRect(strip, &client);
  TextMeasure measure(strip);
  for (int tab = 0, tabs = int(SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0)); tab < tabs; ++tab) {
    wchar_t text[256] = {};
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 256;
    SendMessageW(strip, TCM_GETITEMW, tab, reinterpret_cast<LPARAM>(&item));
    RECT area = {};
    SendMessageW(strip, TCM_GETITEMRECT, tab, reinterpret_cast<LPARAM>(&area));
    bool shown = area.right > area.left && area.left >= client.left && area.right <= client.right;
    if (text[0] != 0 && shown)
      CutIfShort(cut, text, measure.Needed(text).cx, area.right - area.left);
  }
}

// Every text the control shows that needs more room than the control gives
// it. Fonts and list items are only readable in their own process.
CutTexts CutOffTexts(HWND control) {
  CutTexts cut;
  DWORD process = 0;
  GetWindowThreadProcessId(control, &process);
  if (process != GetCurrentProcessId()) return cut;
  wchar_t name[64] = {};
  GetClassNameW(control, name, 64);
  if (lstrcmpiW(name, L"Static") == 0) CheckLabelOrButton(control, false, cut);
  else if (lstrcmpiW(name, L"Button") == 0) CheckLabelOrButton(control, true, cut);
  else if (lstrcmpiW(name, WC_COMBOBOXW) == 0) CheckComboBox(control, cut);
  else if (lstrcmpiW(name, WC_LISTVIEWW) == 0) CheckListView(control, cut);
  else if (lstrcmpiW(name, WC_TABCONTROLW) == 0) CheckTabStrip(control, cut);
  return cut;
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
    for (const std::wstring& text : CutOffTexts(children[i]))
      faults.push_back(DescribeControl(children[i]) + " cuts off " + Narrow(text));
    for (size_t j = i + 1; j < children.size(); ++j) {
      RECT other = InParent(children[j]), common;
      if (IntersectRect(&common, &area, &other))
        faults.push_back(DescribeControl(children[i]) + " overlaps " + DescribeControl(children[j]));
    }
    Check(children[i], faults);
  }
}

}  // namespace

std::string Narrow(const std::wstring& text) {
  char narrow[1024] = {};
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, narrow, sizeof narrow, nullptr, nullptr);
  return narrow;
}

std::vector<std::string> CheckLayout(HWND window) {
  std::vector<std::string> faults;
  Check(window, faults);
  return faults;
}

}  // namespace tw::test
