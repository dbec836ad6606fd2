// The font chooser: one procedure, one handler per message; the record being
// edited is reached through the state the dialog keeps in DWLP_USER.
#include "controls/font_chooser.h"

#include <string>

#include "base/scaling.h"
#include "controls/colour_picker.h"
#include "controls/dialog_frame.h"
#include "platform/win32/device.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"

namespace tw {
namespace {

constexpr int kSmallestSize = 10, kLargestSize = 30;
constexpr LONG kBold = 700, kThin = 100;
constexpr RECT kSwatch = {110, 40, 110 + 42, 40 + 19};  // 96-dpi units

struct ChooserState {
  HINSTANCE resources;
  HMODULE language;
  LOGFONTW* font;
  std::uint32_t* colour;
};

struct ItemText {
  int item;
  UINT text;
};
constexpr ItemText kItemTexts[] = {
    {IDC_FONT_SIZE_LABEL, kTextFontSize}, {IDC_FONT_ITALIC, kTextItalic},       {IDC_FONT_BOLD, kTextBold},
    {IDC_FONT_UNDERLINE, kTextUnderline}, {IDC_FONT_STRIKEOUT, kTextStrikeOut}, {IDC_FONT_COLOUR_LABEL, kTextFontColour},
    {IDC_FONT_SET_COLOUR, kTextSetColour},
};


void Check(HWND dialog, int item, bool on) { CheckDlgButton(dialog, item, on ? BST_CHECKED : BST_UNCHECKED); }
BYTE Checked(HWND dialog, int item) { return IsDlgButtonChecked(dialog, item) == BST_CHECKED ? 1 : 0; }

void FillSizes(HWND dialog, LONG height) {
  HWND list = GetDlgItem(dialog, IDC_FONT_SIZE);
  for (int size = kSmallestSize; size <= kLargestSize; ++size)
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(std::to_wstring(size).c_str()));
  bool listed = height >= kSmallestSize && height <= kLargestSize;
  SendMessageW(list, CB_SETCURSEL, listed ? height - kSmallestSize : -1, 0);
}

INT_PTR OnInitDialog(HWND dialog, ChooserState& state) {
  SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&state));
  MakeFullScreenDialog(dialog, state.resources, state.language);
  SetWindowTextW(dialog, LanguageString(state.language, kTextFontChooserTitle).c_str());
  for (const ItemText& text : kItemTexts) SetItemLanguageText(dialog, text.item, state.language, text.text);
  const LOGFONTW& font = *state.font;
  Check(dialog, IDC_FONT_ITALIC, font.lfItalic != 0);
  Check(dialog, IDC_FONT_UNDERLINE, font.lfUnderline != 0);
  Check(dialog, IDC_FONT_BOLD, font.lfWeight == kBold);
  Check(dialog, IDC_FONT_STRIKEOUT, font.lfStrikeOut != 0);
  FillSizes(dialog, font.lfHeight);
  return TRUE;
}

// No selection reads as one below the smallest size.
void Confirm(HWND dialog, ChooserState& state) {
  LOGFONTW& font = *state.font;
  font.lfItalic = Checked(dialog, IDC_FONT_ITALIC);
  font.lfUnderline = Checked(dialog, IDC_FONT_UNDERLINE);
  font.lfStrikeOut = Checked(dialog, IDC_FONT_STRIKEOUT);
  font.lfWeight = Checked(dialog, IDC_FONT_BOLD) ? kBold : kThin;
  font.lfHeight = static_cast<LONG>(SendDlgItemMessageW(dialog, IDC_FONT_SIZE, CB_GETCURSEL, 0, 0)) + kSmallestSize;
  EndDialog(dialog, TRUE);
}

RECT SwatchArea() { return {ScaleX(kSwatch.left), ScaleY(kSwatch.top), ScaleX(kSwatch.right), ScaleY(kSwatch.bottom)}; }

void SetColour(HWND dialog, ChooserState& state) {
  std::uint32_t chosen = PickColour(dialog, state.resources, state.language, *state.colour, true);
  if (chosen == kColourCancelled) return;
  *state.colour = chosen;
  InvalidateRect(dialog, nullptr, TRUE);
}

BOOL OnCommand(HWND dialog, ChooserState& state, int id) {
  switch (id) {
    case IDOK:
      Confirm(dialog, state);
      return TRUE;
    case IDM_CANCEL:
    case IDCANCEL:
      EndDialog(dialog, FALSE);
      return TRUE;
    case IDC_FONT_SET_COLOUR:
      SetColour(dialog, state);
      return TRUE;
  }
  return FALSE;
}

void FillRectWith(HDC dc, const RECT& area, COLORREF colour) {
  HBRUSH brush = CreateSolidBrush(colour);
  FillRect(dc, &area, brush);
  DeleteObject(brush);
}

void OnPaint(HWND dialog, const ChooserState& state) {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(dialog, &paint);
  RECT client;
  GetClientRect(dialog, &client);
  FillRectWith(dc, client, RGB(255, 255, 255));
  RECT swatch = SwatchArea();
  FillRectWith(dc, swatch, RGB(0, 0, 0));
  InflateRect(&swatch, -1, -1);
  bool none = *state.colour == kNoColour;
  FillRectWith(dc, swatch, none ? RGB(255, 255, 255) : *state.colour & 0xFFFFFF);
  if (none) {
    std::wstring text = LanguageString(state.language, kTextNoColour);
    HGDIOBJ oldFont = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(0, 0, 0));
    DrawTextW(dc, text.c_str(), -1, &swatch, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(dc, oldFont);
  }
  EndPaint(dialog, &paint);
}

INT_PTR OnMessage(HWND dialog, ChooserState& state, UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_COMMAND:
      return OnCommand(dialog, state, LOWORD(wParam));
    case WM_PAINT:
      OnPaint(dialog, state);
      return TRUE;
  }
  return FALSE;
}

}  // namespace

bool EditFont(HWND owner, HINSTANCE resources, HMODULE language, LOGFONTW& font, std::uint32_t& colour) {
  ChooserState state = {resources, language, &font, &colour};
  return DialogBoxParamW(resources, MAKEINTRESOURCEW(IDD_FONT_CHOOSER), owner,
                         FrameDialogProc<ChooserState, OnInitDialog, OnMessage>,
                         reinterpret_cast<LPARAM>(&state)) == TRUE;
}

}  // namespace tw
