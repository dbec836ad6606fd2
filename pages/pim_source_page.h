// The PIM source page (slot 8): where the Today item takes its calendar,
// tasks and contacts from (the device's own store, Pocket Informant,
// custom databases or Agenda Fusion), and the options only some of these
// sources have. Rows that do not apply to the chosen source are disabled.
#pragma once

#include <memory>
#include <span>

#include "pages/row_list_page.h"

namespace tw {

inline constexpr ControlIdRange kPimSourcePageIds{3600, 3799};

inline constexpr int kPimSourceTabCount = 2;

// The page's tabs and forms, for tests that walk them.
std::span<const RowTab> PimSourceTabs();

class PimSourcePage : public RowListPage {
 public:
  explicit PimSourcePage(const PageContext& context);
};

std::unique_ptr<SettingsPage> MakePimSourcePage(const PageContext& context);

}  // namespace tw
