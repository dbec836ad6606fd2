// The icon chooser's window over the icon scan and the category's choice:
// one procedure, one handler per message, state in DWLP_USER while open.
#include "controls/icon_chooser.h"

#include <algorithm>

#include "base/scaling.h"
#include "controls/dialog_frame.h"
#include "controls/scroller.h"
#include "data/icon_sets.h"
#include "data/win32/skin_image.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"

namespace tw {
namespace {

// Layout in 96-dpi units: the caption lines, the list, the two buttons.
constexpr int kMargin = 4, kButtonHeight = 20, kRowHeight = 30, kIconCell = 24;
constexpr int kBarRoom = 16;  // the scroller's bar covers the rows' right end
constexpr COLORREF kSelectedRow = RGB(198, 222, 247), kFolderText = RGB(110, 110, 110);

struct IconRow {
  std::u16string path;
  Bitmap bitmap;
};

struct ChooserState {
  const IconChooserSetup& setup;
  IconChoice choice;
  std::vector<IconRow> rows;
  int selected = -1;
  HWND list = nullptr;
  HFONT boldFont = nullptr;
  int linesBottom = 0;  // where the caption lines end
};

std::wstring Line(const ChooserState& state, int line) {
  return LanguageString(state.setup.language, kTextIconChooserLines[line]);
}

// The caption lines wrap; the first is bold. Measures when `measure`.
int PaintLines(HWND dialog, HDC dc, const ChooserState& state, bool measure) {
  RECT client;
  GetClientRect(dialog, &client);
  int top = ScaleY(kMargin);
  SetBkMode(dc, TRANSPARENT);
  HGDIOBJ oldFont = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
  for (int line = 0; line < int(std::size(kTextIconChooserLines)); ++line) {
    if (line == 0 && state.boldFont) SelectObject(dc, state.boldFont);
    if (line == 1) SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
    std::wstring text = Line(state, line);
    RECT area = {ScaleX(kMargin), top, client.right - ScaleX(kMargin), top};
    DrawTextW(dc, text.c_str(), int(text.size()), &area, DT_WORDBREAK | DT_NOPREFIX | DT_CALCRECT);
    if (!measure) DrawTextW(dc, text.c_str(), int(text.size()), &area, DT_WORDBREAK | DT_NOPREFIX);
    top = area.bottom;
  }
  SelectObject(dc, oldFont);
  return top + ScaleY(kMargin);
}

void Place(HWND window, int left, int top, int right, int bottom) {
  SetWindowPos(window, nullptr, left, top, std::max(right - left, 0), std::max(bottom - top, 0),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void OnSize(HWND dialog, ChooserState& state) {
  RECT client;
  GetClientRect(dialog, &client);
  HDC dc = GetDC(dialog);
  state.linesBottom = PaintLines(dialog, dc, state, true);
  ReleaseDC(dialog, dc);
  int left = ScaleX(kMargin), right = client.right - ScaleX(kMargin);
  int buttonsTop = client.bottom - ScaleY(kMargin + kButtonHeight), middle = client.right / 2;
  Place(GetDlgItem(dialog, IDC_ICON_CHOOSE), left, buttonsTop, middle - ScaleX(kMargin / 2),
        client.bottom - ScaleY(kMargin));
  Place(GetDlgItem(dialog, IDC_ICON_NONE), middle + ScaleX(kMargin / 2), buttonsTop, right,
        client.bottom - ScaleY(kMargin));
  if (state.list) Place(state.list, left, state.linesBottom, right, buttonsTop - ScaleY(kMargin));
}

// The category's own file, when an icon folder holds it, starts selected.
void LoadRows(ChooserState& state) {
  for (std::u16string& path : ScanIconFolders(state.setup.files, state.setup.iconFolders)) {
    if (path == state.choice.CategoryFile()) state.selected = int(state.rows.size());
    BitmapHandle handle = state.setup.bitmaps.Load(path);
    state.rows.push_back({std::move(path), Bitmap(state.setup.bitmaps, handle)});
  }
}

HFONT BoldVersionOf(HFONT font) {
  LOGFONTW face = {};
  if (font == nullptr || GetObjectW(font, sizeof face, &face) == 0) return nullptr;
  face.lfWeight = FW_BOLD;
  return CreateFontIndirectW(&face);
}

INT_PTR OnInitDialog(HWND dialog, ChooserState& state) {
  SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&state));
  const IconChooserSetup& setup = state.setup;
  SetWindowTextW(dialog, Line(state, 0).c_str());
  MakeFullScreenDialog(dialog, setup.resources, setup.language);
  SetItemLanguageText(dialog, IDC_ICON_CHOOSE, setup.language, kTextChooseIcon);
  SetItemLanguageText(dialog, IDC_ICON_NONE, setup.language, kTextNoIcon);
  state.boldFont = BoldVersionOf(reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
  LoadRows(state);
  ScrollerOptions options;
  options.skinFolder = setup.skinFolder;
  options.pictures = setup.pictures;
  state.list = CreateScroller(setup.resources, dialog, {0, 0, 1, 1}, L"ListIconView", options);
  OnSize(dialog, state);
  return TRUE;
}

int RowHeight() { return ScaleY(kRowHeight); }

// The rows meeting the clip box: icon, file name, and its folder in grey.
LRESULT DrawRows(HWND dialog, const ChooserState& state, HDC dc) {
  RECT client, clip;
  GetClientRect(state.list, &client);
  if (GetClipBox(dc, &clip) == ERROR) clip = client;
  int position = ScrollerPosition(state.list), height = RowHeight();
  FillRect(dc, &clip, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  SetBkMode(dc, TRANSPARENT);
  HGDIOBJ oldFont = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
  int first = std::max(0, (position + int(clip.top)) / height);
  for (int row = first; row < int(state.rows.size()); ++row) {
    int top = row * height - position;
    if (top >= clip.bottom) break;
    RECT area = {0, top, client.right, top + height};
    if (row == state.selected) {
      HBRUSH brush = CreateSolidBrush(kSelectedRow);
      FillRect(dc, &area, brush);
      DeleteObject(brush);
    }
    const IconRow& icon = state.rows[row];
    int cell = ScaleX(kIconCell), cellTop = top + (height - cell) / 2;
    DrawBitmapInCell(dc, static_cast<HBITMAP>(icon.bitmap.get()),
                     {ScaleX(kMargin), cellTop, ScaleX(kMargin) + cell, cellTop + cell});
    std::u16string_view path = icon.path;
    std::size_t slash = path.rfind(u'\\');
    std::wstring name = ToWide(path.substr(slash + 1)), folder = ToWide(path.substr(0, slash + 1));
    RECT text = {ScaleX(2 * kMargin + kIconCell), top + ScaleY(1), client.right - ScaleX(kBarRoom), top + height / 2};
    SetTextColor(dc, RGB(0, 0, 0));
    DrawTextW(dc, name.c_str(), int(name.size()), &text, DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    OffsetRect(&text, 0, height / 2 - ScaleY(2));
    SetTextColor(dc, kFolderText);
    DrawTextW(dc, folder.data(), int(folder.size()), &text, DT_SINGLELINE | DT_NOPREFIX | DT_PATH_ELLIPSIS);
  }
  SelectObject(dc, oldFont);
  return static_cast<LRESULT>(state.rows.size()) * height;
}

void OnRowPressed(ChooserState& state, LPARAM point) {
  int y = static_cast<short>(HIWORD(point)) + ScrollerPosition(state.list);
  int row = y / RowHeight();
  state.selected = row >= 0 && row < int(state.rows.size()) ? row : -1;
  InvalidateRect(state.list, nullptr, FALSE);
}

void OnChoose(HWND dialog, ChooserState& state) {
  if (state.selected < 0) return;  // nothing picked yet: the user goes on choosing
  state.choice.Choose(state.rows[state.selected].path, state.setup.bitmaps);
  EndDialog(dialog, IDOK);
}

INT_PTR OnMessage(HWND dialog, ChooserState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      switch (LOWORD(wParam)) {
        case IDC_ICON_CHOOSE:
          OnChoose(dialog, state);
          return TRUE;
        case IDC_ICON_NONE:
          state.choice.ChooseNone();
          EndDialog(dialog, IDOK);
          return TRUE;
        case IDOK:
        case IDM_CANCEL:
        case IDCANCEL:
          EndDialog(dialog, IDOK);
          return TRUE;
      }
      return FALSE;
    case kScrollerDrawContent:
      SetWindowLongPtrW(dialog, DWLP_MSGRESULT, DrawRows(dialog, state, reinterpret_cast<HDC>(wParam)));
      return TRUE;
    case kScrollerPressed:
      OnRowPressed(state, lParam);
      return TRUE;
    case WM_PAINT: {
      PAINTSTRUCT paint;
      HDC dc = BeginPaint(dialog, &paint);
      PaintLines(dialog, dc, state, false);
      EndPaint(dialog, &paint);
      return TRUE;
    }
    case WM_SIZE:
      OnSize(dialog, state);
      return TRUE;
  }
  return FALSE;
}

}  // namespace

void DrawBitmapInCell(HDC dc, HBITMAP bitmap, const RECT& cell) {
  BITMAP info = {};
  if (bitmap == nullptr || GetObjectW(bitmap, sizeof info, &info) == 0 || info.bmWidth <= 0) return;
  int cellWidth = cell.right - cell.left, cellHeight = cell.bottom - cell.top;
  int height = std::abs(info.bmHeight);
  // At the screen's scale, shrunk to the cell if larger, keeping its shape.
  int width = ScaleX(info.bmWidth), shown = ScaleY(height);
  if (width > cellWidth || shown > cellHeight) {
    double scale = std::min(double(cellWidth) / width, double(cellHeight) / shown);
    width = std::max(1, int(width * scale));
    shown = std::max(1, int(shown * scale));
  }
  TransparentImage(dc, cell.left + (cellWidth - width) / 2, cell.top + (cellHeight - shown) / 2, width, shown, bitmap,
                   0, 0, info.bmWidth, height, kIconTransparent);
}

void RunIconChooser(HWND owner, const IconChooserSetup& setup, CategoryEntry& category) {
  ChooserState state = {setup, IconChoice(setup.iconsFolder, category), {}};
  DialogBoxParamW(setup.resources, MAKEINTRESOURCEW(IDD_ICON_CHOOSER), owner,
                  FrameDialogProc<ChooserState, OnInitDialog, OnMessage>, reinterpret_cast<LPARAM>(&state));
  if (state.boldFont) DeleteObject(state.boldFont);
  state.choice.Finish(setup.files);
}

}  // namespace tw
