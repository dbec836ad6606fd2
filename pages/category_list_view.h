// Slot 10, the category list: each category's colour swatch, name and
// bitmap in a scrolling list the main window paints through; a tap on the
// swatch or name picks a colour, one on the bitmap picks an icon. Above the
// list, the additional icons folder with its choose and clear buttons, which
// the shell answers. Colours go into the category list, saved at Done.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>

#include "data/categories.h"
#include "data/win32/skin_image.h"
#include "pages/settings_page.h"

namespace tw {

inline constexpr ControlIdRange kCategoryListIds = {4000, 4199};

// The categories view's answer to its scroller's draw requests: the rows
// meeting the clip box, each with its swatch, name and bitmap; every row in
// view records its top and bottom for "find category at y". A scroll step's
// band copies its rows from a few drawn whole, so each row a held arrow
// brings in is drawn once rather than in three or four slices; a paint of
// the whole view draws afresh and forgets them, as the rows may have changed.
class CategoryRowPainter {
 public:
  CategoryRowPainter(HWND list, CategoryList& categories, HFONT font);
  ~CategoryRowPainter();
  CategoryRowPainter(const CategoryRowPainter&) = delete;
  CategoryRowPainter& operator=(const CategoryRowPainter&) = delete;

  // Returns the content's height. The painter's font and pen stay selected
  // in the scroller's context: the painter must outlive the scroller.
  LRESULT Paint(HDC dc);

 private:
  void RecordRows(int position, int height);
  void PaintRow(HDC dc, const CategoryEntry& entry, const RECT& area);
  void PrepareDc(HDC dc);
  bool MakeCache(HDC like, int width);
  // The row's top in the cache, where it is drawn first if not held.
  int CachedRow(std::size_t row);

  HWND list_;
  CategoryList& categories_;
  HFONT font_;
  HPEN markPen_;
  HBRUSH lineBrush_;
  std::size_t recordedFirst_ = 0, recordedLast_ = 0;
  static constexpr std::size_t kCachedRows = 4;
  OffscreenSurface cache_;
  int cacheWidth_ = 0;
  std::array<std::size_t, kCachedRows> cachedRows_ = {};  // row + 1 in each slot, 0 for none
};

class CategoryListView : public SettingsPage {
 public:
  enum Control { kIconsLabel, kIconFolder, kChooseFolder, kClearFolder, kList, kControlCount };

  CategoryListView(const PageContext& context, CategoryData& data, const CategoryPlatform& platform,
                   HMODULE pictures);
  ~CategoryListView() override;

  void Show(int showCommand, bool includeTabStrip) override;
  // Lays the controls out on the window as it is now: the view is made
  // before the window has its final size.
  void Place();
  // Shown in the edit, kept in the record's additional icons folder; the
  // list is drawn again.
  void SetIconFolder(std::u16string_view folder);
  // The list's draw and press requests, which reach the main window.
  LRESULT OnListMessage(UINT message, WPARAM wParam, LPARAM lParam);
  HBRUSH ControlColour(HDC dc, HWND control) override;
  void Paint(HDC dc) override;

  HWND Window(Control control) const { return controls_[control]; }
  static constexpr int IdOf(Control control) { return kCategoryListIds.first + control; }
  // Where the list's rows start below the page's caption, in 96-dpi units.
  static constexpr int kCaptionHeight = 30;

 private:
  void CreateControls();
  void OnPressed(LPARAM point);
  void PickColour(CategoryEntry& category);
  void PickIcon(CategoryEntry& category);

  CategoryData& data_;
  CategoryPlatform platform_;
  HMODULE pictures_;
  std::array<HWND, kControlCount> controls_ = {};
  std::unique_ptr<CategoryRowPainter> rows_;
  bool controlsMade_ = false;
};

}  // namespace tw
