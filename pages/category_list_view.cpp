#include "pages/category_list_view.h"

#include <algorithm>

#include "base/scaling.h"
#include "controls/colour_picker.h"
#include "controls/icon_chooser.h"
#include "controls/scroller.h"
#include "data/icon_sets.h"
#include "pages/common_controls.h"
#include "platform/win32/wide.h"

namespace tw {
namespace {

constexpr unsigned kIconsLabelText = 40994, kChooseFolderText = 40995, kClearFolderText = 40996;

// Layout in 96-dpi units. The folder row sits under the caption the shell
// paints; the list fills the rest of the page.
constexpr int kMargin = 4, kFolderRowHeight = 20, kLabelWidth = 44, kChooseWidth = 24, kClearWidth = 44;
constexpr int kRowHeight = 24, kSwatchSide = 14, kNameLeft = 26, kIconCell = 20;
constexpr int kBarRoom = 16;  // the scroller's bar covers the rows' right end
constexpr COLORREF kRowLine = RGB(210, 210, 210), kNoColourMark = RGB(160, 160, 160);

RECT IconCell(int right, int top) {
  int cellRight = right - ScaleX(kBarRoom + kMargin);
  int cellTop = top + (ScaleY(kRowHeight) - ScaleY(kIconCell)) / 2;
  return {cellRight - ScaleX(kIconCell), cellTop, cellRight, cellTop + ScaleY(kIconCell)};
}

void PaintCategorySwatch(HDC dc, const RECT& row, std::uint32_t colour) {
  int side = ScaleY(kSwatchSide), top = row.top + (row.bottom - row.top - side) / 2;
  RECT frame = {ScaleX(6), top, ScaleX(6) + side, top + side};
  PaintSwatch(dc, frame, colour, u"");
  if (colour != kNoColour) return;
  // No colour of its own: a struck-out box, as a choice still to make.
  HPEN pen = CreatePen(PS_SOLID, 1, kNoColourMark);
  HGDIOBJ old = SelectObject(dc, pen);
  MoveToEx(dc, frame.left + 1, frame.bottom - 2, nullptr);
  LineTo(dc, frame.right - 1, frame.top);
  SelectObject(dc, old);
  DeleteObject(pen);
}

// A category without a bitmap shows where to tap for one.
void PaintEmptyCell(HDC dc, const RECT& cell) {
  HPEN pen = CreatePen(PS_DOT, 1, kNoColourMark);
  HGDIOBJ oldPen = SelectObject(dc, pen);
  HGDIOBJ oldBrush = SelectObject(dc, GetStockObject(NULL_BRUSH));
  Rectangle(dc, cell.left, cell.top, cell.right, cell.bottom);
  SelectObject(dc, oldBrush);
  SelectObject(dc, oldPen);
  DeleteObject(pen);
}

}  // namespace

CategoryListView::CategoryListView(const PageContext& context, CategoryData& data, const CategoryPlatform& platform,
                                   HMODULE pictures)
    : SettingsPage(context), data_(data), platform_(platform), pictures_(pictures) {
  auto add = [&](Control control, const wchar_t* className, DWORD style, unsigned text = 0) {
    controls_[control] =
        AddControl(className, AsWide(Text(text).Text()), style, {}, IdOf(control), context.normalFont);
  };
  add(kIconsLabel, L"STATIC", SS_LEFT | SS_CENTERIMAGE | SS_NOPREFIX, kIconsLabelText);
  add(kIconFolder, L"EDIT", WS_BORDER | ES_AUTOHSCROLL | ES_READONLY);
  add(kChooseFolder, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, kChooseFolderText);
  add(kClearFolder, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, kClearFolderText);
  SetText(controls_[kIconFolder], settings().AdditionalIconsFolder.View());

  ScrollerOptions options;
  options.skinFolder = settings().skin.folder.View();
  options.pictures = pictures_;
  controls_[kList] = CreateScroller(context.instance, context.window, {}, L"CategoriesView", options);
  if (controls_[kList] != nullptr) {
    ShowWindow(controls_[kList], SW_HIDE);
    SetWindowLongPtrW(controls_[kList], GWLP_ID, IdOf(kList));
  }
  Place();
}

void CategoryListView::Place() {
  RECT area = PageArea();
  int top = area.top + ScaleY(kCaptionHeight), bottom = top + ScaleY(kFolderRowHeight);
  int right = area.right - ScaleX(kMargin);
  int clearLeft = right - ScaleX(kClearWidth), chooseLeft = clearLeft - ScaleX(kMargin + kChooseWidth);
  int editLeft = ScaleX(kMargin + kLabelWidth);
  const RECT boxes[kControlCount] = {
      {ScaleX(kMargin), top, editLeft - ScaleX(2), bottom},
      {editLeft, top, chooseLeft - ScaleX(kMargin), bottom},
      {chooseLeft, top, clearLeft - ScaleX(kMargin), bottom},
      {clearLeft, top, right, bottom},
      {ScaleX(kMargin), bottom + ScaleY(kMargin), right, area.bottom - ScaleY(kMargin)},
  };
  PlaceControls(controls_, boxes);
}

void CategoryListView::Show(int showCommand, bool) {
  ShowControls(showCommand);
  if (controls_[kList] != nullptr) ShowWindow(controls_[kList], showCommand);
}

void CategoryListView::SetIconFolder(std::u16string_view folder) {
  settings().AdditionalIconsFolder.Assign(folder);
  SetText(controls_[kIconFolder], folder);
  InvalidateRect(controls_[kList], nullptr, FALSE);
}

LRESULT CategoryListView::OnListMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (controls_[kList] == nullptr) return 0;
  if (message == kScrollerDrawContent) return DrawRows(reinterpret_cast<HDC>(wParam));
  if (message == kScrollerPressed) OnPressed(lParam);
  return 0;
}

// The shell paints the dark page over the controls; they come out on top.
void CategoryListView::Paint(HDC) {
  RepaintShown({controls_.begin(), controls_.end()});
}

HBRUSH CategoryListView::ControlColour(HDC dc, HWND control) {
  return control == controls_[kIconFolder] ? nullptr : CategoryPageColours(dc);
}

// Every row in view records where it is, also those a scroll step moved
// without drawing them again, so that a tap finds the row it lands on.
void CategoryListView::RecordRows(int position, int height) {
  int rowHeight = ScaleY(kRowHeight);
  for (CategoryEntry& entry : data_.categories.entries) entry.rowTop = 1, entry.rowBottom = 0;  // nowhere
  auto& entries = data_.categories.entries;
  int first = std::max(0, position / rowHeight), last = std::min<int>(int(entries.size()), (position + height) / rowHeight + 1);
  for (int row = first; row < last; ++row) {
    entries[row].rowTop = row * rowHeight - position;
    entries[row].rowBottom = entries[row].rowTop + rowHeight - 1;
  }
}

LRESULT CategoryListView::DrawRows(HDC dc) {
  HWND list = controls_[kList];
  RECT client, clip;
  GetClientRect(list, &client);
  if (GetClipBox(dc, &clip) == ERROR) clip = client;
  int position = ScrollerPosition(list), rowHeight = ScaleY(kRowHeight);
  auto& entries = data_.categories.entries;
  RecordRows(position, client.bottom);
  FillRect(dc, &clip, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, RGB(0, 0, 0));
  HGDIOBJ oldFont = SelectObject(dc, context().normalFont);
  HBRUSH line = CreateSolidBrush(kRowLine);
  for (int row = std::max(0, (position + int(clip.top)) / rowHeight); row < int(entries.size()); ++row) {
    int top = row * rowHeight - position;
    if (top >= clip.bottom) break;
    const CategoryEntry& entry = entries[row];
    RECT area = {0, top, client.right, top + rowHeight};
    PaintCategorySwatch(dc, area, entry.color);
    RECT cell = IconCell(client.right, top);
    RECT name = {ScaleX(kNameLeft), top, cell.left - ScaleX(kMargin), area.bottom};
    DrawTextW(dc, AsWide(entry.name.Text()), entry.name.Length(), &name,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    if (entry.bitmap) DrawBitmapInCell(dc, static_cast<HBITMAP>(entry.bitmap.get()), cell);
    else PaintEmptyCell(dc, cell);
    RECT separator = {0, area.bottom - 1, client.right, area.bottom};
    FillRect(dc, &separator, line);
  }
  DeleteObject(line);
  SelectObject(dc, oldFont);
  return static_cast<LRESULT>(entries.size()) * rowHeight;
}

void CategoryListView::OnPressed(LPARAM point) {
  int x = static_cast<short>(LOWORD(point)), y = static_cast<short>(HIWORD(point));
  CategoryEntry* category = data_.categories.FindAtY(y);
  if (category == nullptr) return;
  RECT client;
  GetClientRect(controls_[kList], &client);
  if (x >= IconCell(client.right, 0).left - ScaleX(kMargin)) PickIcon(*category);
  else PickColour(*category);
  InvalidateRect(controls_[kList], nullptr, FALSE);
}

void CategoryListView::PickColour(CategoryEntry& category) {
  std::uint32_t colour = tw::PickColour(context().window, context().instance, context().language, category.color, true);
  if (colour != kColourCancelled) category.color = colour;
}

void CategoryListView::PickIcon(CategoryEntry& category) {
  IconChooserSetup setup = {context().instance,
                            context().language,
                            pictures_,
                            settings().skin.folder.View(),
                            settings().TWIconsFolder.View(),
                            IconFolders(platform_.registry, settings().InstallFolder.View(),
                                        settings().AdditionalIconsFolder.View()),
                            platform_.files,
                            platform_.bitmaps};
  RunIconChooser(context().window, setup, category);
}

}  // namespace tw
