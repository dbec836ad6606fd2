// The Tasks page driven through its real controls: the form filled from the
// record when the page opens, changed as a user would, then Done and the
// registry checked.
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
constexpr int kListingTab = 0, kIconTab = 2, kCustomDateTab = 3;
constexpr int kDateRow = 0, kLeftIconRow = 0, kHidingRow = 2, kStartTextRow = 2;
constexpr unsigned kNoIconText = 40791, kStartWord = 40779, kEndWord = 40780;
constexpr std::int32_t kAllTaskMarkers = 383, kShownRightIcons = 47;

class TasksTest : public RowPageTest<TasksPage, kTasksSlot> {
 protected:
  HWND Control(int tab, int row) { return Page()->FormControl(tab, row); }
};

TEST_F(TasksTest, EveryControlShowsAndStoresItsSetting) {
  Start(kAboutPage);
  WalkEveryRow(TasksTabs());
}

// Values the page cannot show: flags it does not offer, check-list values
// other than 0 and 1, text longer than a field holds.
TEST_F(TasksTest, ValuesOutsideTheControlsAreStoredAsShown) {
  for (std::int32_t unknownIcon : {1, 64}) {
    SCOPED_TRACE(unknownIcon);
    Start();
    SettingsStore& record = Settings();
    record.TaskTabLeftAlignIcon = unknownIcon;
    record.TasksRightIcons = kAllTaskMarkers;
    record.HideCompletedTasks = 2;
    record.CustomDateFrmtEnd.Assign(std::u16string(300, u'x'));
    OpenPage();
    HWND leftIcon = Control(kIconTab, kLeftIconRow);
    EXPECT_EQ(ComboText(leftIcon, ComboSelection(leftIcon)), English(kNoIconText));
    EXPECT_FALSE(ListViewChecked(Control(kListingTab, kHidingRow), 0));
    EXPECT_EQ(GetText(Control(kCustomDateTab, kStartTextRow + 1)).size(), 300u);
    Command(IDOK);
    EXPECT_EQ(Saved(&SettingsStore::TaskTabLeftAlignIcon), 0);
    EXPECT_EQ(Saved(&SettingsStore::TasksRightIcons), kShownRightIcons);
    EXPECT_EQ(Saved(&SettingsStore::HideCompletedTasks), 0);
    EXPECT_EQ(Saved(&SettingsStore::CustomDateFrmtEnd), std::u16string(255, u'x'));
    DestroyWindow(Window());
    Pump();
  }
}

// The left icon's flags are not in flag order: 32 before 16.
TEST_F(TasksTest, LeftIconOffersHighImportanceBeforeCategory) {
  Start();
  Settings().TaskTabLeftAlignIcon = 16;
  OpenPage();
  HWND leftIcon = Control(kIconTab, kLeftIconRow);
  EXPECT_EQ(ComboSelection(leftIcon), 5);
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

TEST_F(TasksTest, EveryTabFitsEachScreen) {
  CheckEveryScreen(L"tasks", kTasksTabCount, [&] { OpenPage(); }, [&](int tab) { SelectTab(tab); });
}

}  // namespace
}  // namespace tw::test
