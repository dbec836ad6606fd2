// The thirteen page slots of the main window, one row each: everything the
// shell knows about a page is in its row.
#pragma once

#include <windows.h>

#include "pages/settings_page.h"

namespace tw {

inline constexpr int kPageCount = 13;
inline constexpr int kFirstPage = 0;
inline constexpr int kFontsPage = 6;
inline constexpr int kCategoryListPage = 10;
inline constexpr int kFilterPanelPage = 11;
inline constexpr int kAboutPage = 12;

struct PageRow {
  unsigned nameText;     // the page selector's entry
  PageFactory make;      // null: the slot holds no page object (yet)
  int destroyRank;       // Done and window destruction store pages in rising rank
  bool paintedByShell;   // the dark category pages, whose views the shell paints
  ControlIdRange ids;    // the page's control ids
};

extern const PageRow kPages[kPageCount];

}  // namespace tw
