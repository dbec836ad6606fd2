// The General page (slot 0): what concerns the Today item as a whole: taps,
// height limits, language, skin, font face, keys, the tab bar, scrolling and
// drawing. Two row lists and, between them, a form for the tab bar.
#pragma once

#include <memory>
#include <span>

#include "pages/row_list_page.h"

namespace tw {

inline constexpr ControlIdRange kGeneralPageIds{2000, 2199};

inline constexpr int kGeneralTabCount = 3;

// The page's tabs, rows and form, for tests that walk them.
std::span<const RowTab> GeneralTabs();

class GeneralPage : public RowListPage {
 public:
  explicit GeneralPage(const PageContext& context);
};

std::unique_ptr<SettingsPage> MakeGeneralPage(const PageContext& context);

}  // namespace tw
