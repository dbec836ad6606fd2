// The PIM source page driven through its real controls: its forms through
// the shared walk, then the source choice that enables the rows it concerns
// at once, and paths taken from the file chooser or as typed.
#include <windows.h>

#include <gtest/gtest.h>

#include "pages/pim_source_page.h"
#include "resources/resource_ids.h"
#include "tests/ui/dialog_driver.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

constexpr int kSourceTab = 0, kOptionsTab = 1, kCalendarRow = 2, kTasksRow = 3, kContactsRow = 4;
using S = SettingsStore;

class PimSourceTest : public RowPageTest<PimSourcePage, 8> {
 protected:
  HWND Control(int tab, int row) { return Page()->FormControl(tab, row); }
  // Whether a row is enabled, its caption and button alike.
  bool Enabled(int tab, int row) {
    bool control = IsWindowEnabled(Control(tab, row));
    for (HWND part : {Page()->FormCaption(tab, row), Page()->FormButton(tab, row)})
      EXPECT_TRUE(part == nullptr || control == bool(IsWindowEnabled(part))) << "row " << row;
    return control;
  }
};

TEST(PimSourcePage, TableIsAsDescribed) {
  const Described rows[] = {{0, 1, 0, 40556, 0, u"dUsedPIM", 4, 22},
                            {1, 2, 0, 40562, 0, u"OverridePimCatColros"},
                            {1, 3, 0, 40563, 0, u"LeaveAFRunning"}};
  ExpectDescribed(PimSourceTabs(), {{40554, 5}, {40555, 4}}, rows);
}

// The custom databases' rows only for them, leaving Agenda Fusion running
// only for it, the category and priority options for either PIM program.
TEST_F(PimSourceTest, SourceIsStoredAndEnablesItsRowsAsSoonAsChosen) {
  const struct { std::int32_t source; bool paths, leaveRunning, programOptions; } kSources[] = {
      {3, false, true, true}, {0, false, false, false}, {2, true, false, false}, {1, false, false, true}};
  Start();
  Settings().dUsedPIM = kSources[0].source;
  OpenPage();
  for (const auto& expected : kSources) {
    SCOPED_TRACE(expected.source);
    if (expected.source != kSources[0].source) Pick(Control(kSourceTab, 0), expected.source, CBN_SELENDOK);
    EXPECT_EQ(Settings().dUsedPIM, expected.source);
    for (int row = 1; row <= kContactsRow; ++row) EXPECT_EQ(Enabled(kSourceTab, row), expected.paths) << row;
    for (int row = 0; row < 4; ++row)
      EXPECT_EQ(Enabled(kOptionsTab, row), row == 2 ? expected.leaveRunning : expected.programOptions) << row;
  }
}

// The chooser starts where the typed path points and a cancel leaves the
// box alone; typed paths are kept as typed, up to 256 characters, whether
// or not anything is there.
TEST_F(PimSourceTest, PathsComeFromTheChooserOrAsTyped) {
  const std::u16string calendar = Folder() + u"\\cal.pdb", kept = u"\\Storage Card\\kept.db";
  const std::u16string tasks = u"\\nowhere\\" + std::u16string(300, u't');
  ASSERT_TRUE(files().WriteAll(calendar, "x", 1));
  Start();
  Settings().dUsedPIM = 2;
  Settings().dCustomPIMCalendar.Assign(Folder());
  Settings().dCustomPIMContacts.Assign(kept);
  OpenPage();
  Then(IDC_CHOOSER_LIST, [&](HWND dialog) {
    TapChooserRow(dialog, L"cal.pdb");
    TapMenuBar(dialog, IDOK);
  });
  PlaySteps([&] { Press(Page()->FormButton(kSourceTab, kCalendarRow)); });
  Then(IDC_CHOOSER_LIST, [&](HWND dialog) { TapMenuBar(dialog, IDM_CANCEL); });
  PlaySteps([&] { Press(Page()->FormButton(kSourceTab, kContactsRow)); });
  SetText(Control(kSourceTab, kTasksRow), tasks);
  Command(IDOK);
  EXPECT_EQ(Saved(&S::dCustomPIMCalendar), calendar);
  EXPECT_EQ(Saved(&S::dCustomPIMTasks), tasks.substr(0, 256));
  EXPECT_EQ(Saved(&S::dCustomPIMContacts), kept);
}

TEST_F(PimSourceTest, EveryTabFitsEachScreen) {
  WriteDword(registry(), kCurrentUser, kProductKey, u"dUsedPIM", 2);  // every row enabled
  CheckEveryTab(L"pim-source", kPimSourceTabCount);
}

}  // namespace
}  // namespace tw::test
