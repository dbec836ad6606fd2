// The Tasks page (slot 2): the tasks tab of the Today item, as a plain form
// of four tabs: date format and what is listed, line breaks and folding, the
// icons beside a task, and a custom date picture.
#pragma once

#include <memory>
#include <span>

#include "pages/row_list_page.h"

namespace tw {

inline constexpr ControlIdRange kTasksPageIds{2400, 2599};

inline constexpr int kTasksTabCount = 4;

// The page's tabs and their forms, for tests that walk them.
std::span<const RowTab> TasksTabs();

// The day a number of days after another, across month and year ends.
CalendarDate AddDays(const CalendarDate& day, int days);

class TasksPage : public RowListPage {
 public:
  explicit TasksPage(const PageContext& context);
};

std::unique_ptr<SettingsPage> MakeTasksPage(const PageContext& context);

}  // namespace tw
