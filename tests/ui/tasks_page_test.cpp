// The Tasks page: its forms against the page's description, then what only
// this page does: values its controls cannot show, and the date samples.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>

#include "pages/tasks_page.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

constexpr int kTasksSlot = 2;
constexpr int kListingTab = 0, kIconTab = 2;
constexpr int kDateRow = 0, kLeftIconRow = 0;
constexpr unsigned kNoIconText = 40791, kStartWord = 40779, kEndWord = 40780;
constexpr std::int32_t kAllTaskMarkers = 383, kShownRightIcons = 47;

class TasksTest : public RowPageTest<TasksPage, kTasksSlot> {
 protected:
  HWND Control(int tab, int row) { return Page()->FormControl(tab, row); }
};

// The check lists too: the hiding settings one by one, the right icons by
// flag, 8 first.
TEST(TasksPage, TableIsAsDescribed) {
  const Described rows[] = {
      {0, 2, 0, 40768, 0, u"TsksLimitFutureDate", 8, 40781}, {1, 1, 0, 40769, 0, u"TsksLineBreaker", 4, 25},
      {1, 2, 0, 40770, 0, u"TsksUseSmartFolding"},          {1, 4, 0, 40980, 0, u"TsksFoldingDflt", 2, 40947},
      {2, 1, 0, 40772, 0, u"TaskTabLeftAlignIcon", 6, 40791}, {3, 2, 0, 40776, 0, u"TsksCustomDateStruct", 3, 40799},
  };
  ExpectDescribed(TasksTabs(), {{40762, 3}, {40763, 4}, {40764, 2}, {40766, 4}}, rows);
  std::span<const CheckItem> hiding = TasksTabs()[0].form[2].items, icons = TasksTabs()[2].form[1].items;
  ASSERT_EQ(hiding.size(), 6u);
  ASSERT_EQ(icons.size(), 5u);
  EXPECT_EQ(std::pair(hiding[0].label, std::u16string(SpecOf(hiding[0].field).second->name)),
            std::pair(40793u, std::u16string(u"HideCompletedTasks")));
  EXPECT_EQ(std::pair(hiding[5].label, std::u16string(SpecOf(hiding[5].field).second->name)),
            std::pair(40798u, std::u16string(u"RemoveUndatedTsks")));
  const std::int32_t flags[] = {8, 1, 2, 4, 32};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(icons[i].flag, flags[i]);
}

// Values the page cannot show: a left icon it does not offer, flags it does
// not list. The left icon's flags are not in flag order: 32 before 16.
TEST_F(TasksTest, ValuesOutsideTheControlsAreStoredAsShown) {
  Start();
  Settings().TaskTabLeftAlignIcon = 64;
  Settings().TasksRightIcons = kAllTaskMarkers;
  OpenPage();
  HWND leftIcon = Control(kIconTab, kLeftIconRow);
  EXPECT_EQ(ComboText(leftIcon, ComboSelection(leftIcon)), English(kNoIconText));
  Command(IDOK);
  EXPECT_EQ(Saved(&SettingsStore::TaskTabLeftAlignIcon), 0);
  EXPECT_EQ(Saved(&SettingsStore::TasksRightIcons), kShownRightIcons);

  Start();
  Settings().TaskTabLeftAlignIcon = 16;
  OpenPage();
  EXPECT_EQ(ComboSelection(leftIcon = Control(kIconTab, kLeftIconRow)), 5);
  ComboSelect(leftIcon, 4);
  Command(IDOK);
  EXPECT_EQ(Saved(&SettingsStore::TaskTabLeftAlignIcon), 32);
}

// A week after today, across a month end in a leap year and a year end.
TEST_F(TasksTest, DateSamplesReachIntoTheNextMonthAndYear) {
  struct Case {
    CalendarDate today;
    const char16_t *range, *rangeDayFirst, *startAlone, *laterAlone;
  } cases[] = {
      {{2028, 2, 25, 5}, u"2/25 - 3/3/28", u"25/2 - 3/3", u"2/25/28 ", u"3/3 "},
      {{2026, 12, 28, 1}, u"12/28 - 1/4/27", u"28/12 - 4/1", u"12/28/26 ", u"1/4 "},
  };
  for (const Case& sample : cases) {
    SCOPED_TRACE(sample.today.year);
    FixPageToday(&sample.today);
    Start();
    OpenPage();
    HWND dates = Control(kListingTab, kDateRow);
    ASSERT_EQ(ComboCount(dates), 12);
    EXPECT_EQ(ComboText(dates, 0), sample.range);
    EXPECT_EQ(ComboText(dates, 7), sample.rangeDayFirst);
    EXPECT_EQ(ComboText(dates, 2), sample.startAlone + English(kStartWord));
    EXPECT_EQ(ComboText(dates, 5), sample.laterAlone + English(kEndWord));
    FixPageToday(nullptr);
    DestroyWindow(Window());
    Pump();
  }
}

TEST_F(TasksTest, EveryTabFitsEachScreen) { CheckEveryTab(L"tasks", kTasksTabCount); }

}  // namespace
}  // namespace tw::test
