#include "pages/common_controls.h"

#include <algorithm>
#include <vector>

#include "base/scaling.h"
#include "controls/colour_picker.h"
#include "platform/win32/startup_trace.h"
#include "platform/win32/wide.h"

namespace tw {
namespace {

constexpr int kMaxItemText = 260;

bool RegisterCommonControls() {
  trace::Timed timed(trace::kCommonControlsTally);
  HMODULE library = LoadLibraryW(L"comctl32.dll");
  if (library == nullptr) return false;
  using InitProc = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
  auto init = reinterpret_cast<InitProc>(reinterpret_cast<void*>(GetProcAddress(library, "InitCommonControlsEx")));
  if (init == nullptr) return false;
  INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES | ICC_LISTVIEW_CLASSES};
  return init(&classes) != FALSE;
}

// An entry longer than the box opens a list wide enough to read it whole,
// as far as the window allows: a narrow column need not cut a choice short.
void WidenDropDown(HWND combo, const std::wstring& entry) {
  RECT window;
  GetClientRect(GetAncestor(combo, GA_ROOT), &window);
  auto font = reinterpret_cast<HFONT>(SendMessageW(combo, WM_GETFONT, 0, 0));
  int needed = int(TextExtent(font, ToU16(entry.c_str())).cx) + 2 * GetSystemMetrics(SM_CXBORDER) + 4 +
               GetSystemMetrics(SM_CXVSCROLL);
  auto current = static_cast<int>(SendMessageW(combo, CB_GETDROPPEDWIDTH, 0, 0));
  if (needed > current) SendMessageW(combo, CB_SETDROPPEDWIDTH, std::min<int>(needed, window.right), 0);
}

}  // namespace

SIZE TextExtent(HFONT font, std::u16string_view text, int wrapWidth) {
  std::wstring terminated = ToWide(text);
  HDC dc = GetDC(nullptr);
  HGDIOBJ old = SelectObject(dc, font);
  RECT needed = {0, 0, wrapWidth, 0};
  DrawTextW(dc, terminated.c_str(), -1, &needed,
            DT_CALCRECT | DT_NOPREFIX | (wrapWidth > 0 ? DT_WORDBREAK : DT_SINGLELINE));
  SelectObject(dc, old);
  ReleaseDC(nullptr, dc);
  return {needed.right, needed.bottom};
}

bool LoadCommonControls() {
  // The library stays loaded for the life of the process, as an import would.
  static const bool loaded = RegisterCommonControls();
  return loaded;
}

void ComboClear(HWND combo) {
  SendMessageW(combo, CB_RESETCONTENT, 0, 0);
  SendMessageW(combo, CB_SETDROPPEDWIDTH, 0, 0);
}

int ComboAdd(HWND combo, std::u16string_view text) {
  std::wstring terminated = ToWide(text);
  LRESULT position = SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(terminated.c_str()));
  if (position >= 0) SendMessageW(combo, CB_SETITEMDATA, position, position);
  WidenDropDown(combo, terminated);
  return static_cast<int>(position);
}

void ComboSelect(HWND combo, int position) { SendMessageW(combo, CB_SETCURSEL, position, 0); }

int ComboSelection(HWND combo) { return static_cast<int>(SendMessageW(combo, CB_GETCURSEL, 0, 0)); }

int ComboCount(HWND combo) { return static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0)); }

std::u16string ComboText(HWND combo, int position) {
  LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, position, 0);
  if (length == CB_ERR) return {};
  std::vector<wchar_t> text(length + 1);
  SendMessageW(combo, CB_GETLBTEXT, position, reinterpret_cast<LPARAM>(text.data()));
  return ToU16(text.data());
}

void ListViewPrepare(HWND list, bool checkBoxes) {
  DWORD styles = LVS_EX_FULLROWSELECT | (checkBoxes ? LVS_EX_CHECKBOXES : 0);
  SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, styles, styles);
  RECT area;
  GetClientRect(list, &area);
  LVCOLUMNW column = {};
  column.mask = LVCF_WIDTH;
  column.cx = area.right;
  SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
}

// The one column fills the list, less the scroll bar only once the rows need
// it; a column made wider on purpose, to scroll sideways, is left so.
void ListViewFitColumn(HWND list) {
  RECT area, window;
  GetClientRect(list, &area);
  GetWindowRect(list, &window);
  auto width = static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, 0, 0));
  if (width <= window.right - window.left && width != area.right)
    SendMessageW(list, LVM_SETCOLUMNWIDTH, 0, area.right);
}

void ListViewAddRow(HWND list, std::u16string_view text) {
  std::wstring terminated = ToWide(text);
  LVITEMW item = {};
  item.mask = LVIF_TEXT;
  item.iItem = ListViewCount(list);
  item.pszText = terminated.data();
  SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
  ListViewFitColumn(list);
}

ListViewBatch::ListViewBatch(HWND list)
    : list_(list), hidden_((GetWindowLongW(list, GWL_STYLE) & WS_VISIBLE) == 0) {
  SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
}

// Redrawing on again sets the visible style, as it does on Windows.
ListViewBatch::~ListViewBatch() {
  SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
  if (hidden_) SetWindowLongW(list_, GWL_STYLE, GetWindowLongW(list_, GWL_STYLE) & ~WS_VISIBLE);
  ListViewFitColumn(list_);
}

void ListViewSetRowText(HWND list, int row, std::u16string_view text) {
  std::wstring terminated = ToWide(text);
  LVITEMW item = {};
  item.pszText = terminated.data();
  SendMessageW(list, LVM_SETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
}

std::u16string ListViewRowText(HWND list, int row) {
  wchar_t text[kMaxItemText] = {};
  LVITEMW item = {};
  item.pszText = text;
  item.cchTextMax = kMaxItemText;
  SendMessageW(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
  return ToU16(text);
}

// State image 1 is the empty box, 2 the ticked one.
constexpr UINT kUncheckedImage = 1, kCheckedImage = 2;

void ListViewSetChecked(HWND list, int row, bool checked) {
  LVITEMW item = {};
  item.stateMask = LVIS_STATEIMAGEMASK;
  item.state = INDEXTOSTATEIMAGEMASK(checked ? kCheckedImage : kUncheckedImage);
  SendMessageW(list, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

bool ListViewChecked(HWND list, int row) {
  auto state = static_cast<UINT>(SendMessageW(list, LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK));
  return (state & LVIS_STATEIMAGEMASK) >> 12 != kUncheckedImage;
}

int ListViewCount(HWND list) { return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)); }

void ListViewSelect(HWND list, int row) {
  LVITEMW item = {};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  item.state = row < 0 ? 0 : item.stateMask;
  // Row -1 addresses every row.
  SendMessageW(list, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
  if (row >= 0) SendMessageW(list, LVM_ENSUREVISIBLE, row, FALSE);
}

int ListViewSelection(HWND list) {
  return static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}


void TabAdd(HWND tabs, std::u16string_view label) {
  std::wstring terminated = ToWide(label);
  TCITEMW item = {};
  item.mask = TCIF_TEXT;
  item.pszText = terminated.data();
  SendMessageW(tabs, TCM_INSERTITEMW, TabCount(tabs), reinterpret_cast<LPARAM>(&item));
}

int TabSelection(HWND tabs) { return static_cast<int>(SendMessageW(tabs, TCM_GETCURSEL, 0, 0)); }

void TabSelect(HWND tabs, int tab) { SendMessageW(tabs, TCM_SETCURSEL, tab, 0); }

int TabCount(HWND tabs) { return static_cast<int>(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0)); }

void SetChecked(HWND box, bool checked) {
  SendMessageW(box, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool IsChecked(HWND box) { return (SendMessageW(box, BM_GETCHECK, 0, 0) & BST_CHECKED) != 0; }

void SetText(HWND window, std::u16string_view text) { SetWindowTextW(window, ToWide(text).c_str()); }

std::u16string GetText(HWND window) {
  int length = GetWindowTextLengthW(window);
  std::vector<wchar_t> text(length + 1);
  GetWindowTextW(window, text.data(), length + 1);
  return ToU16(text.data());
}

void RepaintArea(HWND window, const RECT* area) {
  RedrawWindow(window, area, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void RepaintShown(const std::vector<HWND>& controls) {
  for (HWND control : controls)
    if (IsWindowVisible(control)) RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

HBRUSH CategoryPageColours(HDC dc) {
  static HBRUSH brush = CreateSolidBrush(kCategoryPageColour);
  SetTextColor(dc, RGB(255, 255, 255));
  SetBkColor(dc, kCategoryPageColour);
  return brush;
}

HFONT CreateLabelFont() {
  LOGFONTW font = {};
  font.lfHeight = ScaleY(12);
  wcscpy(font.lfFaceName, L"Tahoma");
  return CreateFontIndirectW(&font);
}

void PaintSwatch(HDC dc, RECT frame, std::uint32_t colour, std::u16string_view noColourText) {
  FillRect(dc, &frame, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  InflateRect(&frame, -ScaleX(1), -ScaleY(1));
  if (colour == kNoColour) {
    FillRect(dc, &frame, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    SetTextColor(dc, RGB(0, 0, 0));
    SetBkMode(dc, TRANSPARENT);
    DrawTextW(dc, reinterpret_cast<const wchar_t*>(noColourText.data()), int(noColourText.size()), &frame,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    return;
  }
  HBRUSH brush = CreateSolidBrush(colour);
  FillRect(dc, &frame, brush);
  DeleteObject(brush);
}

}  // namespace tw
