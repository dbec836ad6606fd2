// The Messages page (slot 4): how the messages tab of the Today item draws
// its list and when it marks a message read. A form on the first of two
// tabs, twin of the Notes page.
#pragma once

#include <memory>
#include <span>

#include "pages/row_list_page.h"

namespace tw {

inline constexpr ControlIdRange kMessagesPageIds{2800, 2999};

// The page's tabs and form, for tests that walk them.
std::span<const RowTab> MessagesTabs();

std::unique_ptr<SettingsPage> MakeMessagesPage(const PageContext& context);

}  // namespace tw
