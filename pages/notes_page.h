// The Notes page (slot 3): how the notes tab of the Today item draws its
// list. A form on the first of two tabs, twin of the Messages page.
#pragma once

#include <memory>
#include <span>

#include "pages/row_list_page.h"

namespace tw {

inline constexpr ControlIdRange kNotesPageIds{2600, 2799};

// The page's tabs and form, for tests that walk them.
std::span<const RowTab> NotesTabs();

std::unique_ptr<SettingsPage> MakeNotesPage(const PageContext& context);

}  // namespace tw
