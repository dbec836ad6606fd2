// The Tasks page driven through its real controls: the form filled from the
// record when the page opens, changed as a user would, then Done and the
// registry checked.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>

#include "app/shell.h"
#include "base/scaling.h"
#include "pages/common_controls.h"
#include "pages/tasks_page.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "settings/schema.h"
#include "tests/ui/app_harness.h"

namespace tw::test {
namespace {

constexpr int kTasksSlot = 2;
constexpr int kListingTab = 0, kIconTab = 2, kCustomDateTab = 3;
constexpr int kDateRow = 0, kLeftIconRow = 0, kRightIconRow = 1, kHidingRow = 2, kStartTextRow = 2;
constexpr unsigned kNoIconText = 40791, kStartWord = 40779, kEndWord = 40780;
constexpr std::int32_t kAllTaskMarkers = 383, kShownRightIcons = 47, kSomeIcons = 8 | 2;

const ValueSpec* Spec(NumberField field) {
  for (const ValueSpec& value : kTasksKey.values)
    if (value.dword == field) return &value;
  return nullptr;
}
const ValueSpec* Spec(TextField field) {
  for (const ValueSpec& value : kTasksKey.values)
    if (value.string == field) return &value;
  return nullptr;
}

std::u16string English(unsigned id) { return AsU16(EnglishText(id).c_str()); }

class TasksTest : public AppTest {
 protected:
  // The page is filled when it is built, so the record is set first.
  TasksPage* OpenPage() {
    SelectPage(kTasksSlot);
    return Page();
  }
  TasksPage* Page() { return static_cast<TasksPage*>(Shell().slots[kTasksSlot].get()); }
  HWND Control(int tab, int row) { return Page()->FormControl(tab, row); }
  void SelectTab(int tab) { TapTab(Page()->TabStrip(), tab); }
  // Stored values; one left at its default may be absent.
  std::int32_t Saved(NumberField field) {
    const ValueSpec* spec = Spec(field);
    StoredValue value = ReadValue(registry(), kCurrentUser, kTasksKey.path, spec->name);
    return value.present ? std::int32_t(value.dword) : spec->number;
  }
  std::u16string Saved(TextField field) {
    const ValueSpec* spec = Spec(field);
    StoredValue value = ReadValue(registry(), kCurrentUser, kTasksKey.path, spec->name);
    return value.present ? value.text : spec->text;
  }
};

// Every control of every tab: shown from the record with its caption, then
// changed and stored by Done, in one walk over the page's table.
TEST_F(TasksTest, EveryControlShowsAndStoresItsSetting) {
  Start();
  SettingsStore& record = Settings();
  std::span<const RowTab> tabs = TasksTabs();
  for (const RowTab& tab : tabs)
    for (const Row& row : tab.form) {
      if (row.editor == EditorKind::DropDown) record.*row.number = row.rule(1);
      if (row.editor == EditorKind::Check) record.*row.number = 1;
      if (row.editor == EditorKind::Text) (record.*row.text).Assign(u"from");
      for (const CheckItem& item : row.items)
        if (item.field != nullptr) record.*item.field = 1;
      if (row.editor == EditorKind::FlagList) record.*row.number = kSomeIcons;
    }
  OpenPage();
  std::vector<int> lastEntries;  // what each drop-down was set to, in walk order
  for (int tab = 0; tab < int(tabs.size()); ++tab) {
    SelectTab(tab);
    for (int number = 0; number < int(tabs[tab].form.size()); ++number) {
      const Row& row = tabs[tab].form[number];
      SCOPED_TRACE("tab " + std::to_string(tab) + " row " + std::to_string(number));
      HWND control = Control(tab, number), caption = Page()->FormCaption(tab, number);
      ASSERT_NE(control, nullptr);
      EXPECT_TRUE(IsWindowVisible(control));
      if (row.caption != 0) EXPECT_EQ(GetText(row.editor == EditorKind::Check ? control : caption), English(row.caption));
      switch (row.editor) {
        case EditorKind::DropDown:
          EXPECT_EQ(ComboSelection(control), 1);
          lastEntries.push_back(ComboCount(control) - 1);
          ComboSelect(control, lastEntries.back());
          break;
        case EditorKind::Check:
          EXPECT_TRUE(IsChecked(control));
          SetChecked(control, false);
          break;
        case EditorKind::Text:
          EXPECT_EQ(GetText(control), u"from");
          SetText(control, u"to " + std::u16string(1, char16_t(u'a' + number)));
          break;
        default:  // check lists: the first row is flipped
          for (int item = 0; item < int(row.items.size()); ++item) {
            bool set = row.items[item].field != nullptr || (kSomeIcons & row.items[item].flag) != 0;
            EXPECT_EQ(ListViewChecked(control, item), set) << item;
          }
          ListViewSetChecked(control, 0, !ListViewChecked(control, 0));
          break;
      }
    }
  }
  // The other tabs' controls are hidden.
  EXPECT_FALSE(IsWindowVisible(Control(kListingTab, kDateRow)));
  Command(IDOK);
  auto lastEntry = lastEntries.begin();
  for (int tab = 0; tab < int(tabs.size()); ++tab)
    for (int number = 0; number < int(tabs[tab].form.size()); ++number) {
      const Row& row = tabs[tab].form[number];
      SCOPED_TRACE("tab " + std::to_string(tab) + " row " + std::to_string(number));
      if (row.editor == EditorKind::DropDown) EXPECT_EQ(Saved(row.number), row.rule(*lastEntry++));
      if (row.editor == EditorKind::Check) EXPECT_EQ(Saved(row.number), 0);
      if (row.editor == EditorKind::Text) EXPECT_EQ(Saved(row.text), u"to " + std::u16string(1, char16_t(u'a' + number)));
      if (row.editor == EditorKind::FlagList) EXPECT_EQ(Saved(row.number), kSomeIcons & ~8);
      if (row.editor == EditorKind::CheckList)
        for (int item = 0; item < int(row.items.size()); ++item) EXPECT_EQ(Saved(row.items[item].field), item == 0 ? 0 : 1);
    }
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

// Every tab at each screen; the pictures are kept under the build tree.
TEST_F(TasksTest, EveryTabFitsEachScreen) {
  CheckEveryScreen(L"tasks", kTasksTabCount, [&] { OpenPage(); }, [&](int tab) { SelectTab(tab); });
}

}  // namespace
}  // namespace tw::test
