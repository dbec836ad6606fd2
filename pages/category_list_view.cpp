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

}  // namespace

CategoryRowPainter::CategoryRowPainter(HWND list, CategoryList& categories, HFONT font)
    : list_(list),
      categories_(categories),
      font_(font),
      markPen_(CreatePen(PS_SOLID, 1, kNoColourMark)),
      lineBrush_(CreateSolidBrush(kRowLine)) {}

CategoryRowPainter::~CategoryRowPainter() {
  cache_.Release();  // before the pen it holds
  DeleteObject(markPen_);
  DeleteObject(lineBrush_);
}

// Every row in view records where it is, also those a scroll step moved
// without drawing them again, so that a tap finds the row it lands on; the
// rows that left the view are moved nowhere.
void CategoryRowPainter::RecordRows(int position, int height) {
  std::vector<CategoryEntry>& entries = categories_.entries;
  int rowHeight = ScaleY(kRowHeight);
  for (std::size_t row = recordedFirst_; row < std::min(recordedLast_, entries.size()); ++row)
    entries[row].rowTop = 1, entries[row].rowBottom = 0;
  recordedFirst_ = std::min(entries.size(), std::size_t(std::max(0, position / rowHeight)));
  recordedLast_ = std::min(entries.size(), std::size_t(std::max(0, (position + height) / rowHeight + 1)));
  for (std::size_t row = recordedFirst_; row < recordedLast_; ++row) {
    entries[row].rowTop = int(row) * rowHeight - position;
    entries[row].rowBottom = entries[row].rowTop + rowHeight - 1;
  }
}

void CategoryRowPainter::PaintRow(HDC dc, const CategoryEntry& entry, const RECT& area) {
  int side = ScaleY(kSwatchSide), top = area.top + (area.bottom - area.top - side) / 2;
  RECT swatch = {ScaleX(6), top, ScaleX(6) + side, top + side};
  PaintSwatch(dc, swatch, entry.color, u"");
  if (entry.color == kNoColour) {
    // No colour of its own: a struck-out box, as a choice still to make.
    SelectObject(dc, markPen_);
    MoveToEx(dc, swatch.left + 1, swatch.bottom - 2, nullptr);
    LineTo(dc, swatch.right - 1, swatch.top);
  }
  RECT cell = IconCell(area.right, area.top);
  RECT name = {ScaleX(kNameLeft), area.top, cell.left - ScaleX(kMargin), area.bottom};
  DrawTextW(dc, AsWide(entry.name.Text()), entry.name.Length(), &name,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
  if (entry.bitmap) {
    DrawBitmapInCell(dc, static_cast<HBITMAP>(entry.bitmap.get()), cell);
  } else {
    FrameRect(dc, &cell, lineBrush_);  // where to tap for a bitmap
  }
  RECT separator = {area.left, area.bottom - 1, area.right, area.bottom};
  FillRect(dc, &separator, lineBrush_);
}

// The contexts are the scroller's and the cache's and outlive the paint:
// the font and pen stay selected in them, as selecting a font costs Wine
// about as much as the blit of the whole list.
void CategoryRowPainter::PrepareDc(HDC dc) {
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, RGB(0, 0, 0));
  if (GetCurrentObject(dc, OBJ_FONT) != font_) SelectObject(dc, font_);
  if (GetCurrentObject(dc, OBJ_PEN) != markPen_) SelectObject(dc, markPen_);
}

bool CategoryRowPainter::MakeCache(HDC like, int width) {
  if (cache_.dc() && cacheWidth_ == width) return true;
  cachedRows_ = {};
  cacheWidth_ = width;
  if (!cache_.Create(like, width, int(kCachedRows) * ScaleY(kRowHeight))) {
    cache_.Release();
    return false;
  }
  PrepareDc(cache_.dc());
  return true;
}

int CategoryRowPainter::CachedRow(std::size_t row) {
  int rowHeight = ScaleY(kRowHeight);
  std::size_t slot = row % kCachedRows;
  int top = int(slot) * rowHeight;
  if (cachedRows_[slot] == row + 1) return top;
  RECT area = {0, top, cacheWidth_, top + rowHeight};
  FillRect(cache_.dc(), &area, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  PaintRow(cache_.dc(), categories_.entries[row], area);
  cachedRows_[slot] = row + 1;
  return top;
}

LRESULT CategoryRowPainter::Paint(HDC dc) {
  RECT client, clip;
  GetClientRect(list_, &client);
  if (GetClipBox(dc, &clip) == ERROR) clip = client;
  int position = ScrollerPosition(list_), rowHeight = ScaleY(kRowHeight);
  const std::vector<CategoryEntry>& entries = categories_.entries;
  int contentHeight = int(entries.size()) * rowHeight;
  RecordRows(position, client.bottom);
  bool whole = clip.top <= 0 && clip.bottom >= client.bottom;
  if (whole) cachedRows_ = {};
  bool copy = !whole && MakeCache(dc, client.right);
  RECT white = clip;
  if (copy) white.top = std::max<LONG>(clip.top, contentHeight - position);  // copied rows cover the rest
  if (white.top < white.bottom) FillRect(dc, &white, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  if (!copy) PrepareDc(dc);
  for (int row = std::max(0, (position + int(clip.top)) / rowHeight); row < int(entries.size()); ++row) {
    int top = row * rowHeight - position;
    if (top >= clip.bottom) break;
    if (copy)
      BitBlt(dc, 0, top, client.right, rowHeight, cache_.dc(), 0, CachedRow(std::size_t(row)), SRCCOPY);
    else
      PaintRow(dc, entries[row], {0, top, client.right, top + rowHeight});
  }
  return contentHeight;
}

CategoryListView::CategoryListView(const PageContext& context, CategoryData& data, const CategoryPlatform& platform,
                                   HMODULE pictures)
    : SettingsPage(context), data_(data), platform_(platform), pictures_(pictures) {}

// Made when first shown: the scroller's pictures need not slow every start-up.
void CategoryListView::CreateControls() {
  controlsMade_ = true;
  const PageContext& context = this->context();
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
    rows_ = std::make_unique<CategoryRowPainter>(controls_[kList], data_.categories, context.normalFont);
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

// The list goes before the painter whose font and pen its context holds.
CategoryListView::~CategoryListView() {
  if (controls_[kList] != nullptr) DestroyWindow(controls_[kList]);
}

void CategoryListView::Show(int showCommand, bool) {
  if (showCommand != 0 && !controlsMade_) CreateControls();
  ShowControls(showCommand);
  if (controls_[kList] != nullptr) ShowWindow(controls_[kList], showCommand);
}

void CategoryListView::SetIconFolder(std::u16string_view folder) {
  settings().AdditionalIconsFolder.Assign(folder);
  SetText(controls_[kIconFolder], folder);
  InvalidateRect(controls_[kList], nullptr, FALSE);
}

LRESULT CategoryListView::OnListMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (rows_ == nullptr) return 0;
  if (message == kScrollerDrawContent) return rows_->Paint(reinterpret_cast<HDC>(wParam));
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
