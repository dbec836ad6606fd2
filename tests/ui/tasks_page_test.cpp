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
      {0, 0, 40767, 0, u"TsksDateFrmt"}, {0, 0, 40768, 0, u"TsksLimitFutureDate", 8, 40781}, {0, 0, 0, 0, u""},
      {1, 0, 40769, 0, u"TsksLineBreaker", 4, 25}, {1, 0, 40770, 0, u"TsksUseSmartFolding"},
      {1, 0, 40771, 0, u"TsksFoldingType", 3, 40408}, {1, 0, 40980, 0, u"TsksFoldingDflt", 2, 40947},
      {2, 0, 40772, 0, u"TaskTabLeftAlignIcon", 6, 40791}, {2, 0, 40773, 0, u"TasksRightIcons"},
      {3, 0, 40775, 0, u"UseCustomDateTsks"}, {3, 0, 40776, 0, u"TsksCustomDateStruct", 3, 40799},
      {3, 0, 40777, 0, u"CustomDateFrmtStart"}, {3, 0, 40778, 0, u"CustomDateFrmtEnd"},
  };
  ExpectDescribed(TasksTabs(), {40762, 40763, 40764, 40766}, rows);
  const std::pair<unsigned, std::u16string> hiding[] = {
      {40793, u"HideCompletedTasks"},      {40794, u"HidePastCompletedTasks"}, {40795, u"IncludeCountersTsks"},
      {40796, u"ConfirmTaskCompleteTsks"}, {40797, u"RemoveUndatedLeadingStr"}, {40798, u"RemoveUndatedTsks"}};
  const std::pair<unsigned, std::int32_t> icons[] = {{40258, 8}, {40255, 1}, {40256, 2}, {40257, 4}, {40261, 32}};
  std::span<const CheckItem> hidingItems = TasksTabs()[0].form[2].items, iconItems = TasksTabs()[2].form[1].items;
  ASSERT_EQ(hidingItems.size(), 6u);
  ASSERT_EQ(iconItems.size(), 5u);
  for (int i = 0; i < 6; ++i)
    EXPECT_EQ(std::pair(hidingItems[i].label, std::u16string(SpecOf(hidingItems[i].field).second->name)), hiding[i]);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(std::pair(iconItems[i].label, iconItems[i].flag), icons[i]);
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
