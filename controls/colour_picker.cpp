// The colour picker: one procedure, one handler per message. Its state lives
// in the dialog (DWLP_USER) for as long as the dialog is open.
#include "controls/colour_picker.h"

#include <commctrl.h>

#include <cwchar>
#include <string>

#include "base/scaling.h"
#include "controls/dialog_frame.h"
#include "platform/win32/device.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"

namespace tw {
namespace {

constexpr int kSlidersTab = 0, kPaletteTab = 1;
constexpr int kStripHeight = 24;        // the colour strip along the bottom
constexpr int kTabTop = 46 - 1;         // above the client's bottom
constexpr int kTabHeight = 22 - 1;
constexpr int kUntouchedBottom = 48;    // tab strip and colour strip: not redrawn on a tab change
constexpr int kSeparatorY = 100;
constexpr int kPaletteWidth = 184, kPaletteHeight = 42, kPaletteTop = 20;
constexpr COLORREF kSwatchFrame = RGB(20, 20, 40);

// The three components and the controls that show each one.
struct Component {
  int slider, field, label;
  UINT text;
  int shift;  // its bits in a colour
};
constexpr Component kComponents[] = {
    {IDC_RED_SLIDER, IDC_RED_VALUE, IDC_RED_LABEL, kTextRed, 0},
    {IDC_GREEN_SLIDER, IDC_GREEN_VALUE, IDC_GREEN_LABEL, kTextGreen, 8},
    {IDC_BLUE_SLIDER, IDC_BLUE_VALUE, IDC_BLUE_LABEL, kTextBlue, 16},
};
constexpr int kSliderControls[] = {IDC_RED_LABEL,   IDC_GREEN_LABEL,  IDC_BLUE_LABEL, IDC_RED_SLIDER,
                                   IDC_GREEN_SLIDER, IDC_BLUE_SLIDER, IDC_RED_VALUE,  IDC_GREEN_VALUE,
                                   IDC_BLUE_VALUE,  IDC_HTML_VALUE,   IDC_HTML_LABEL};

struct PickerState {
  HINSTANCE resources;
  HMODULE language;
  bool allowNone;
  bool openOnPalette;
  std::uint32_t colour;
  int values[3] = {};  // red, green, blue: 0 to 255
  HWND tabs = nullptr;
  HWND owner = nullptr;
  std::wstring ownerTitle;
};


// Sliders run 0 to 100; the factor is 100 / 255, truncated on the way in
// and undone by integer arithmetic on the way out, as the device does.
int SliderPosition(int value) { return static_cast<int>(value * 0.3921568627450981); }
int ValueAt(int position) { return position * 255 / 100; }

void SplitColour(PickerState& state) {
  for (int i = 0; i < 3; ++i) state.values[i] = static_cast<int>((state.colour >> kComponents[i].shift) & 0xFF);
}

void Recompose(PickerState& state) {
  state.colour = 0;
  for (int i = 0; i < 3; ++i) state.colour |= static_cast<std::uint32_t>(state.values[i] & 0xFF) << kComponents[i].shift;
}

int CurrentTab(const PickerState& state) { return state.tabs ? TabCtrl_GetCurSel(state.tabs) : kSlidersTab; }

void ShowColourInFields(HWND dialog, const PickerState& state) {
  for (int i = 0; i < 3; ++i) {
    SendDlgItemMessageW(dialog, kComponents[i].slider, TBM_SETPOS, TRUE, SliderPosition(state.values[i]));
    SetDlgItemInt(dialog, kComponents[i].field, state.values[i], TRUE);
  }
}

// Web order (red, green, blue), not the byte order of the colour value.
void ShowHex(HWND dialog, const PickerState& state) {
  wchar_t text[8] = {};
  std::uint32_t colour = state.colour;
  std::swprintf(text, 8, L"%02lX%02lX%02lX", static_cast<unsigned long>(colour & 0xFF),
                static_cast<unsigned long>((colour >> 8) & 0xFF), static_cast<unsigned long>((colour >> 16) & 0xFF));
  SetDlgItemTextW(dialog, IDC_HTML_VALUE, text);
}

RECT StripArea(HWND dialog) {
  RECT client;
  GetClientRect(dialog, &client);
  client.top = client.bottom - ScaleY(kStripHeight);
  return client;
}

void RepaintStrip(HWND dialog) {
  RECT strip = StripArea(dialog);
  InvalidateRect(dialog, &strip, FALSE);
}

RECT PaletteArea(HWND dialog) {
  RECT client;
  GetClientRect(dialog, &client);
  int left = client.right / 2 - ScaleX(kPaletteWidth / 2);
  return {left, ScaleY(kPaletteTop), left + ScaleX(kPaletteWidth), ScaleY(kPaletteTop) + ScaleY(kPaletteHeight)};
}

void PlaceTabs(HWND dialog, const PickerState& state) {
  RECT client;
  GetClientRect(dialog, &client);
  SetWindowPos(state.tabs, nullptr, 0, client.bottom - ScaleY(kTabTop), client.right, ScaleY(kTabHeight),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void AddTab(HWND tabs, int index, const std::wstring& text) {
  TCITEMW item = {};
  item.mask = TCIF_TEXT;
  item.pszText = const_cast<wchar_t*>(text.c_str());
  TabCtrl_InsertItem(tabs, index, &item);
}

void CreateTabs(HWND dialog, PickerState& state) {
  LoadCommonControls(ICC_TAB_CLASSES);
  state.tabs = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TCS_BOTTOM, 0, 0, 0, 0,
                               dialog, nullptr, nullptr, nullptr);
  if (state.tabs == nullptr) return;
  SendMessageW(state.tabs, WM_SETFONT, SendMessageW(dialog, WM_GETFONT, 0, 0), FALSE);
  AddTab(state.tabs, kSlidersTab, LanguageString(state.language, kTextSlidersTab));
  AddTab(state.tabs, kPaletteTab, LanguageString(state.language, kTextPaletteTab));
  PlaceTabs(dialog, state);
}

void ShowSliderControls(HWND dialog, bool show) {
  for (int id : kSliderControls) ShowWindow(GetDlgItem(dialog, id), show ? SW_SHOW : SW_HIDE);
}

// Everything above the tab strip, erased: the palette and the separator
// belong to one tab each.
void InvalidateTabArea(HWND dialog) {
  RECT area;
  GetClientRect(dialog, &area);
  area.bottom -= ScaleY(kUntouchedBottom);
  InvalidateRect(dialog, &area, TRUE);
}

// The owner's title says what is being chosen while the picker is open.
void BorrowOwnerTitle(HWND dialog, PickerState& state) {
  std::wstring title = LanguageString(state.language, kTextChooseColour);
  SetWindowTextW(dialog, title.c_str());
  state.owner = GetWindow(dialog, GW_OWNER);
  if (state.owner == nullptr) return;
  wchar_t saved[256] = {};
  GetWindowTextW(state.owner, saved, 256);
  state.ownerTitle = saved;
  SetWindowTextW(state.owner, title.c_str());
}

INT_PTR OnInitDialog(HWND dialog, PickerState& state) {
  SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&state));
  MakeFullScreenDialog(dialog, state.resources, state.language, state.allowNone ? IDM_NO_COLOUR : 0,
                       state.allowNone ? kTextNoneButton : 0);
  SplitColour(state);
  ShowColourInFields(dialog, state);
  ShowHex(dialog, state);
  for (const Component& component : kComponents) SetItemLanguageText(dialog, component.label, state.language, component.text);
  BorrowOwnerTitle(dialog, state);
  CreateTabs(dialog, state);
  if (state.openOnPalette && state.tabs) {
    TabCtrl_SetCurSel(state.tabs, kPaletteTab);
    ShowSliderControls(dialog, false);
  }
  return TRUE;
}

void OnSliderMoved(HWND dialog, PickerState& state, HWND slider, int code) {
  if (code == TB_ENDTRACK) return;
  for (int i = 0; i < 3; ++i) {
    if (GetDlgItem(dialog, kComponents[i].slider) != slider) continue;
    state.values[i] = ValueAt(static_cast<int>(SendMessageW(slider, TBM_GETPOS, 0, 0)));
    SetDlgItemInt(dialog, kComponents[i].field, state.values[i], TRUE);
    Recompose(state);
    RepaintStrip(dialog);
    ShowHex(dialog, state);
  }
}

// A value outside 0 to 255 is refused: the user is told, the edit undone,
// and the field shows the component's value again whatever the undo left.
void OnDecimalLeft(HWND dialog, PickerState& state, int index) {
  const Component& component = kComponents[index];
  BOOL read = FALSE;
  UINT value = GetDlgItemInt(dialog, component.field, &read, FALSE);
  if (read && value <= 255) {
    state.values[index] = static_cast<int>(value);
    SendDlgItemMessageW(dialog, component.slider, TBM_SETPOS, TRUE, SliderPosition(state.values[index]));
    Recompose(state);
    ShowHex(dialog, state);
    RepaintStrip(dialog);
    return;
  }
  ShowLanguageMessage(dialog, state.language, kTextComponentRange, kTextComponentRangeCaption);
  SendDlgItemMessageW(dialog, component.field, WM_UNDO, 0, 0);
  BOOL undone = FALSE;
  if (GetDlgItemInt(dialog, component.field, &undone, FALSE) != static_cast<UINT>(state.values[index]) || !undone)
    SetDlgItemInt(dialog, component.field, state.values[index], FALSE);
}

// What the scan cannot read keeps its value; there is no message.
void OnHexLeft(HWND dialog, PickerState& state) {
  wchar_t text[257] = {};
  GetDlgItemTextW(dialog, IDC_HTML_VALUE, text, 257);
  unsigned long read[3] = {};
  int count = std::swscanf(text, L"%02lX%02lX%02lX", &read[0], &read[1], &read[2]);
  for (int i = 0; i < count && i < 3; ++i) state.values[i] = static_cast<int>(read[i] & 0xFF);
  Recompose(state);
  ShowColourInFields(dialog, state);
  RepaintStrip(dialog);
}

void OnFieldFocus(HWND dialog, PickerState& state, int id, int code) {
  if (code == EN_SETFOCUS) {
    device::ShowInputPanel(true);
    return;
  }
  if (code != EN_KILLFOCUS) return;
  device::ShowInputPanel(false);
  if (id == IDC_HTML_VALUE) OnHexLeft(dialog, state);
  for (int i = 0; i < 3; ++i)
    if (kComponents[i].field == id) OnDecimalLeft(dialog, state, i);
}

// The colour is what the screen shows under the tap, so any picture serves
// as the palette. Dragging picks continuously.
void OnPaletteTap(HWND dialog, PickerState& state, LPARAM position) {
  if (CurrentTab(state) != kPaletteTab) return;
  SetFocus(dialog);
  POINT at = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
  RECT palette = PaletteArea(dialog);
  if (at.x < palette.left || at.x > palette.right || at.y < palette.top || at.y > palette.bottom) return;
  HDC dc = GetDC(dialog);
  COLORREF pixel = GetPixel(dc, at.x, at.y);
  ReleaseDC(dialog, dc);
  if (pixel == CLR_INVALID) return;
  state.colour = pixel;
  SplitColour(state);
  ShowColourInFields(dialog, state);
  ShowHex(dialog, state);
  RepaintStrip(dialog);
}

BOOL OnCommand(HWND dialog, PickerState& state, int id, int code) {
  switch (id) {
    case IDOK:
      EndDialog(dialog, IDOK);
      return TRUE;
    case IDM_CANCEL:
    case IDCANCEL:
      EndDialog(dialog, IDCANCEL);
      return TRUE;
    case IDM_NO_COLOUR:
      if (!state.allowNone) return FALSE;
      state.colour = kNoColour;
      RepaintStrip(dialog);
      return TRUE;
  }
  OnFieldFocus(dialog, state, id, code);
  return FALSE;
}

BOOL OnNotify(HWND dialog, PickerState& state, const NMHDR& header) {
  if (header.hwndFrom != state.tabs || state.tabs == nullptr) return FALSE;
  if (header.code == TCN_SELCHANGING && CurrentTab(state) == kSlidersTab) ShowSliderControls(dialog, false);
  if (header.code == TCN_SELCHANGE && CurrentTab(state) == kSlidersTab) ShowSliderControls(dialog, true);
  if (header.code == TCN_SELCHANGING || header.code == TCN_SELCHANGE) InvalidateTabArea(dialog);
  SetWindowLongPtrW(dialog, DWLP_MSGRESULT, FALSE);  // the change may go ahead
  return TRUE;
}

void FillRectWith(HDC dc, const RECT& area, COLORREF colour) {
  HBRUSH brush = CreateSolidBrush(colour);
  FillRect(dc, &area, brush);
  DeleteObject(brush);
}

// Label, then a framed swatch of the colour, or the "no colour" text.
void DrawStripContent(HDC dc, const PickerState& state, int width, int height) {
  RECT all = {0, 0, width, height};
  FillRectWith(dc, all, RGB(255, 255, 255));
  RECT line = {0, 0, width, 1};
  FillRectWith(dc, line, RGB(0, 0, 0));
  HFONT font = CreateFontW(ScaleY(12), 0, 0, 0, 600, 0, 0, 0, DEFAULT_CHARSET, 0, 0, DEFAULT_QUALITY, 0, L"Tahoma");
  HGDIOBJ oldFont = SelectObject(dc, font);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, RGB(0, 0, 0));
  std::wstring label = LanguageString(state.language, kTextChosenColour);
  SIZE extent = {};
  GetTextExtentPoint32W(dc, label.c_str(), static_cast<int>(label.size()), &extent);
  TextOutW(dc, ScaleX(4), ScaleY(6), label.c_str(), static_cast<int>(label.size()));
  int right = ScaleX(4) + extent.cx;
  if (state.colour != kNoColour) {
    RECT swatch = {right + ScaleX(6), ScaleY(7), right + ScaleX(6 + 50), ScaleY(7) + ScaleY(12)};
    FillRectWith(dc, swatch, kSwatchFrame);
    InflateRect(&swatch, -ScaleX(1), -ScaleY(1));
    FillRectWith(dc, swatch, state.colour & 0xFFFFFF);
  } else {
    std::wstring none = LanguageString(state.language, kTextNoColour);
    TextOutW(dc, right + ScaleX(4), ScaleY(6), none.c_str(), static_cast<int>(none.size()));
  }
  SelectObject(dc, oldFont);
  DeleteObject(font);
}

// Drawn off screen and copied in one block, so it does not flicker while a
// slider is dragged.
void PaintStrip(HWND dialog, HDC dc, const PickerState& state) {
  RECT strip = StripArea(dialog);
  int width = strip.right - strip.left, height = strip.bottom - strip.top;
  HDC memory = CreateCompatibleDC(dc);
  HBITMAP bitmap = CreateCompatibleBitmap(dc, width, height);
  HGDIOBJ old = SelectObject(memory, bitmap);
  DrawStripContent(memory, state, width, height);
  BitBlt(dc, strip.left, strip.top, width, height, memory, 0, 0, SRCCOPY);
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);
}

void PaintPalette(HWND dialog, HDC dc, const PickerState& state) {
  RECT palette = PaletteArea(dialog);
  RECT frame = {palette.left - ScaleX(1), palette.top - ScaleY(1), palette.right + ScaleX(1),
                palette.bottom + ScaleY(1)};
  FillRectWith(dc, frame, RGB(0, 0, 0));
  UINT id = DoubleSizePictures() ? IDB_PALETTE_LARGE : IDB_PALETTE_SMALL;
  auto bitmap = static_cast<HBITMAP>(LoadImageW(state.resources, MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, 0));
  if (bitmap == nullptr) return;
  HDC memory = CreateCompatibleDC(dc);
  HGDIOBJ old = SelectObject(memory, bitmap);
  BITMAP size = {};
  GetObjectW(bitmap, sizeof size, &size);
  StretchBlt(dc, palette.left, palette.top, palette.right - palette.left, palette.bottom - palette.top, memory, 0, 0,
             size.bmWidth, size.bmHeight, SRCCOPY);
  SelectObject(memory, old);
  DeleteDC(memory);
  DeleteObject(bitmap);
}

void OnPaint(HWND dialog, const PickerState& state) {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(dialog, &paint);
  PaintStrip(dialog, dc, state);
  RECT client;
  GetClientRect(dialog, &client);
  if (CurrentTab(state) == kPaletteTab) {
    PaintPalette(dialog, dc, state);
  } else {
    RECT separator = {ScaleX(4), ScaleY(kSeparatorY), client.right - ScaleX(4), ScaleY(kSeparatorY) + 1};
    FillRectWith(dc, separator, RGB(0, 0, 0));
  }
  EndPaint(dialog, &paint);
}

void OnDestroy(PickerState& state) {
  if (state.owner != nullptr) SetWindowTextW(state.owner, state.ownerTitle.c_str());
  if (state.tabs != nullptr) DestroyWindow(state.tabs);
  state.tabs = nullptr;
}

INT_PTR OnMessage(HWND dialog, PickerState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      return OnCommand(dialog, state, LOWORD(wParam), HIWORD(wParam));
    case WM_HSCROLL:
      OnSliderMoved(dialog, state, reinterpret_cast<HWND>(lParam), LOWORD(wParam));
      return TRUE;
    case WM_NOTIFY:
      return OnNotify(dialog, state, *reinterpret_cast<const NMHDR*>(lParam));
    case WM_LBUTTONDOWN:
      OnPaletteTap(dialog, state, lParam);
      return TRUE;
    case WM_MOUSEMOVE:
      if (wParam & MK_LBUTTON) OnPaletteTap(dialog, state, lParam);
      return TRUE;
    case WM_PAINT:
      OnPaint(dialog, state);
      return TRUE;
    case WM_SIZE:
      if (state.tabs) PlaceTabs(dialog, state);
      return TRUE;
    case WM_DESTROY:
      OnDestroy(state);
      return TRUE;
  }
  return FALSE;
}

}  // namespace

std::uint32_t PickColour(HWND owner, HINSTANCE resources, HMODULE language, std::uint32_t colour, bool allowNone,
                         bool openOnPalette) {
  LoadCommonControls(ICC_BAR_CLASSES | ICC_TAB_CLASSES);
  PickerState state = {resources, language, allowNone, openOnPalette, colour, {}, nullptr, nullptr, {}};
  // The colour stays in the state: as a dialog result, no colour (all bits
  // set) would read as the failure -1.
  INT_PTR result = DialogBoxParamW(resources, MAKEINTRESOURCEW(IDD_COLOUR_PICKER), owner,
                                   FrameDialogProc<PickerState, OnInitDialog, OnMessage>,
                                   reinterpret_cast<LPARAM>(&state));
  return result == IDOK ? state.colour : kColourCancelled;
}

}  // namespace tw
