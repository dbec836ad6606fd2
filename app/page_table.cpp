#include "app/page_table.h"

#include "pages/about_page.h"
#include "pages/calendar_page.h"
#include "pages/category_list_view.h"
#include "pages/filter_panel.h"
#include "pages/colours_page.h"
#include "pages/fonts_page.h"
#include "pages/general_page.h"
#include "pages/messages_page.h"
#include "pages/notes_page.h"
#include "pages/pim_source_page.h"
#include "pages/special_events_page.h"
#include "pages/tabs_page.h"
#include "pages/tasks_page.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"

namespace tw {
namespace {

// Commands the shell itself answers: a page control with one of these ids
// would press Done or Cancel.
constexpr int kShellCommands[] = {IDOK, IDCANCEL, IDM_CANCEL, IDM_APPLY_FONT_SIZE, IDM_NO_COLOUR,
                                  IDM_EXPORT, IDM_IMPORT, IDM_UNDO_REWRITE};

}  // namespace

// Pages are stored in the order 0, 1, 2, 3, 4, 5, 8, 7, 6, 9, 12.
constexpr PageRow kPages[kPageCount] = {
    {kPageNameTexts[0], MakeGeneralPage, 0, false, kGeneralPageIds},  // General
    {kPageNameTexts[1], MakeCalendarPage, 1, false, kCalendarPageIds},  // Calendar
    {kPageNameTexts[2], MakeTasksPage, 2, false, kTasksPageIds},  // Tasks
    {kPageNameTexts[3], MakeNotesPage, 3, false, kNotesPageIds},  // Notes
    {kPageNameTexts[4], MakeMessagesPage, 4, false, kMessagesPageIds},  // Messages
    {kPageNameTexts[5], MakeSpecialEventsPage, 5, false, kSpecialEventsPageIds},  // Special events
    {kPageNameTexts[6], MakeFontsPage, 8, false, kFontsPageIds},      // Fonts
    {kPageNameTexts[7], MakeColoursPage, 7, false, kColoursPageIds},  // Colours
    {kPageNameTexts[8], MakePimSourcePage, 6, false, kPimSourcePageIds},  // PIM source
    {kPageNameTexts[9], MakeTabsPage, 9, false, kTabsPageIds},        // Tabs
    {kPageNameTexts[10], nullptr, -1, true, kCategoryListIds},  // category list
    {kPageNameTexts[11], nullptr, -1, true, kFilterPanelIds},   // filter panel
    {kPageNameTexts[12], MakeAboutPage, 10, false, kAboutPageIds},  // About
};

namespace {

constexpr bool IdBlocksStayApart() {
  for (int page = 0; page < kPageCount; ++page) {
    const ControlIdRange& ids = kPages[page].ids;
    if (ids.first > ids.last) return false;
    for (int command : kShellCommands)
      if (ids.Holds(command)) return false;
    for (int other = page + 1; other < kPageCount; ++other)
      if (ids.Meets(kPages[other].ids)) return false;
  }
  return true;
}
static_assert(IdBlocksStayApart(), "a page's control ids meet another page's or the shell's commands");

}  // namespace
}  // namespace tw
