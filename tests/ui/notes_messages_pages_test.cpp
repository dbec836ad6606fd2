// The row-list frame on a small table of its own, every kind of row once;
// then the Notes and Messages pages, which are nothing but such a table.
#include "app/main_window.h"
#include "pages/messages_page.h"
#include "pages/notes_page.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

using S = SettingsStore;

constexpr CheckItem kChecks[] = {{40793, &S::HideCompletedTasks}, {40794, &S::HidePastCompletedTasks}};
constexpr CheckItem kFlags[] = {{40258, nullptr, 8}, {40255, nullptr, 1}};
constexpr Row kRows[] = {
    DropDown(40262, &S::dNumOfDays, 40323, 40324, Numbers(1, 30), PositionPlusOne),
    Check(40263, &S::HideNoAppoDays, 40325, 40326),
    TextRow(40308, &S::MailCustomInboxStr, 40453, 40454),
    Check(40287, &S::ShowTomorrowTtl, 40400, 40401),
};
constexpr Row kForm[] = {
    FormDropDown(40771, &S::TsksFoldingType, TextRange(40408, 3)),
    ItemDropDown(40769, &S::NotesBreakLineStyle, TextRange(25, 3)),
    FormCheck(40770, &S::TsksUseSmartFolding),
    FormText(40777, &S::CustomDateFrmtStart),
    CheckList(0, kChecks),
    FlagList(40773, &S::TasksRightIcons, kFlags),
    FormPath(40558, &S::dCustomPIMCalendar),
};
constexpr RowTab kTabs[] = {{40240, kRows}, {40763, {}, kForm}};

constexpr int kSlot = 3;  // the Notes page's, with its block of ids

class RowFrameTest : public RowPageTest<RowListPage, kSlot> {};

// List rows are stored when another row, tab or page is chosen; forms are
// filled when the page is made and stored when it closes.
TEST_F(RowFrameTest, EachKindOfRowShowsTheRecordAndStoresTheChange) {
  Start(kAboutPage);
  S& record = Settings();
  record.dNumOfDays = 5, record.HideNoAppoDays = 1, record.MailCustomInboxStr.Assign(u"inbox");
  record.ShowTomorrowTtl = 7;  // never selected, so never stored, though no check shows it
  record.TsksFoldingType = 2, record.NotesBreakLineStyle.value = 4, record.TsksUseSmartFolding = 1;
  record.CustomDateFrmtStart.Assign(u"start");
  record.HideCompletedTasks = 1, record.HidePastCompletedTasks = 2, record.TasksRightIcons = 8 | 64;
  record.dCustomPIMCalendar.Assign(u"\\a.db");
  Shell().slots[kSlot] = std::make_unique<RowListPage>(MakePageContext(), kTabs, kNotesPageIds);
  OpenPage();

  SelectRow({0, 1});
  EXPECT_EQ(ListViewRowText(Page()->List(0), 0), English(40262));
  EXPECT_EQ(GetText(EditorWindow(kCaption)), English(40323));
  EXPECT_EQ(GetText(EditorWindow(kTip)), English(40324));
  EXPECT_EQ(ComboSelection(EditorWindow(kDropDown)), 4);
  ComboSelect(EditorWindow(kDropDown), 9);
  SelectRow({0, 2});
  EXPECT_EQ(record.dNumOfDays, 10);
  EXPECT_FALSE(IsWindowVisible(EditorWindow(kDropDown)));
  EXPECT_EQ(GetText(EditorWindow(kCheck)), English(40325));
  EXPECT_EQ(GetText(EditorWindow(kTip)), English(40326));
  EXPECT_TRUE(IsChecked(EditorWindow(kCheck)));
  SetChecked(EditorWindow(kCheck), false);
  SelectRow({0, 1});
  ComboSelect(EditorWindow(kDropDown), -1);
  SelectRow({0, 3});
  EXPECT_EQ(record.dNumOfDays, 10) << "a drop-down left without a choice keeps the value";
  EXPECT_EQ(GetText(EditorWindow(kText)), u"inbox");
  SetText(EditorWindow(kText), u"typed");
  SelectPage(kAboutPage);
  EXPECT_EQ(record.MailCustomInboxStr.View(), u"typed");
  OpenPage();
  EXPECT_EQ(ListViewSelection(Page()->List(0)), -1) << "coming back shows no row";
  EXPECT_FALSE(IsWindowVisible(EditorWindow(kText)));
  SelectRow({0, 1});
  ComboSelect(EditorWindow(kDropDown), 2);
  Page()->Fill(99, 0);  // rows outside a tab do nothing
  Page()->Store(0, 0);
  SelectTab(1);
  EXPECT_EQ(record.dNumOfDays, 3) << "stored as the tab changes";

  auto control = [&](int row) { return Page()->FormControl(1, row); };
  EXPECT_EQ(GetText(Page()->FormCaption(1, 0)), English(40771));
  EXPECT_EQ(ComboSelection(control(0)), 2);
  ComboSelect(control(0), 0);
  EXPECT_EQ(ComboSelection(control(1)), -1) << "4 is not offered";
  EXPECT_EQ(GetText(control(2)), English(40770));
  EXPECT_TRUE(IsChecked(control(2)));
  SetChecked(control(2), false);
  EXPECT_EQ(GetText(control(3)), u"start");
  SetText(control(3), std::u16string(300, u'x'));
  EXPECT_EQ(ListViewRowText(control(4), 1), English(40794));
  EXPECT_TRUE(ListViewChecked(control(4), 0));
  EXPECT_FALSE(ListViewChecked(control(4), 1)) << "only 1 checks";
  ListViewSetChecked(control(4), 0, false);
  EXPECT_TRUE(ListViewChecked(control(5), 0));
  EXPECT_FALSE(ListViewChecked(control(5), 1));
  ListViewSetChecked(control(5), 1, true);
  EXPECT_EQ(GetText(control(6)), u"\\a.db");
  EXPECT_TRUE(IsWindowVisible(Page()->FormButton(1, 6)));
  EXPECT_EQ(GetText(Page()->FormButton(1, 6)), English(40478));
  SetText(control(6), u"\\b.db");

  Command(IDOK);
  EXPECT_EQ(Saved(&S::dNumOfDays), 3);
  EXPECT_EQ(Saved(&S::HideNoAppoDays), 0);
  EXPECT_EQ(Saved(&S::MailCustomInboxStr), u"typed");
  EXPECT_EQ(Saved(&S::ShowTomorrowTtl), 7);
  EXPECT_EQ(Saved(&S::TsksFoldingType), 0);
  EXPECT_EQ(Saved(&S::NotesBreakLineStyle), -1) << "no choice";
  EXPECT_EQ(Saved(&S::TsksUseSmartFolding), 0);
  EXPECT_EQ(Saved(&S::CustomDateFrmtStart), std::u16string(255, u'x'));
  EXPECT_EQ(Saved(&S::HideCompletedTasks), 0);
  EXPECT_EQ(Saved(&S::HidePastCompletedTasks), 0);
  EXPECT_EQ(Saved(&S::TasksRightIcons), 8 | 1) << "flags the list does not show are cleared";
  EXPECT_EQ(Saved(&S::dCustomPIMCalendar), u"\\b.db");
}

TEST(NotesAndMessagesPages, TablesAreAsDescribed) {
  const Described notes[] = {{0, 1, 0, 40769, 0, u"NotesBreakLineStyle", 4, 25},
                             {0, 3, 0, 40979, 0, u"NotesIncldCounters"}};
  ExpectDescribed(NotesTabs(), {{40240, 3}, {40763, 0}}, notes);
  const Described messages[] = {{0, 1, 0, 40974, 0, u"MsgsMrkReadOnPrev"},
                                {0, 3, 0, 40975, 0, u"MsgsIncldCounters", 3, 40976}};
  ExpectDescribed(MessagesTabs(), {{40240, 4}, {40763, 0}}, messages);
}

}  // namespace
}  // namespace tw::test
