// The Special events page driven through its real controls: its forms
// through the shared walk, then what only this page does: date examples,
// the day span's mapping, the filters' categories and warning days.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include "pages/special_events_page.h"
#include "resources/resource_ids.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

constexpr int kSpecialEventsSlot = 5;
constexpr int kGeneralTab = 0, kFilterTab = 1;
constexpr int kWarnRow = 1, kDateRow = 2, kDaySpanRow = 0;
constexpr unsigned kNoDateText = 40728;

using S = SettingsStore;

class SpecialEventsTest : public RowPageTest<SpecialEventsPage, kSpecialEventsSlot> {
 protected:
  HWND Control(int tab, int row) { return Page()->FormControl(tab, row); }
  std::u16string Shown(HWND combo) { return ComboText(combo, ComboSelection(combo)); }
  // A pick in a drop-down of the page's own, as the control reports it.
  void Choose(HWND combo, int position) {
    ComboSelect(combo, position);
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE), LPARAM(combo));
    Pump();
  }
};

TEST_F(SpecialEventsTest, EveryFormControlShowsAndStoresItsSetting) {
  Start(kAboutPage);
  WalkEveryRow(SpecialEventsTabs());
}

// The examples are the day the page opens, in the pictures' order; both
// day-count lists start at the general warning days; a day span the list
// does not offer shows as 30 and is stored so.
TEST_F(SpecialEventsTest, DateExamplesDayCountsAndDaySpan) {
  const CalendarDate day = {2026, 3, 7, 6};
  FixPageToday(&day);
  Start();
  SettingsStore& record = Settings();
  record.SEDateFormat = 3;
  record.SEAlertBeforeDays = 5;
  record.SE1FilterAlertDays = 2;
  record.SEApptsDaySpan = 45;
  OpenPage();
  FixPageToday(nullptr);
  HWND dates = Control(kGeneralTab, kDateRow);
  ASSERT_EQ(ComboCount(dates), 5);
  const std::u16string examples[] = {English(kNoDateText), u"03/07", u"03/07/26", u"07/03", u"07/03/26"};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(ComboText(dates, i), examples[i]) << i;
  EXPECT_EQ(ComboSelection(dates), 3);
  for (HWND days : {Control(kGeneralTab, kWarnRow), Page()->WarningDays()}) {
    EXPECT_EQ(ComboCount(days), 16);
    EXPECT_EQ(ComboText(days, 15), u"15");
    EXPECT_EQ(Shown(days), u"5");
  }
  HWND span = Control(kFilterTab, kDaySpanRow);
  EXPECT_EQ(ComboCount(span), 5);
  EXPECT_EQ(ComboText(span, 3), u"120");
  EXPECT_EQ(Shown(span), u"30");
  Command(IDOK);
  EXPECT_EQ(Saved(&S::SEApptsDaySpan), 30);
  EXPECT_EQ(Saved(&S::SE1FilterAlertDays), 2) << "the warning list starting elsewhere stores nothing";
}

// Categories match by exact text; a name no longer among them selects the
// empty entry and is stored empty. Picking a filter repaints the band from
// y 40 to 180 as it stands, unscaled even at 192 dpi, and shows that
// filter's warning days; a change of them is stored into it at once.
TEST_F(SpecialEventsTest, FiltersTakeCategoriesByExactNameAndWarningDaysAtOnce) {
  WriteDatabase(u"\\Categories Database", {{{0x4001001F, 0, u"Business"}, {0x40020002, 1, u""}},
                                           {{0x4001001F, 0, u"Family"}, {0x40020002, 2, u""}}});
  SetEnvironmentVariableW(L"TIDEWELL_SCREEN", L"480x640");
  gScreen.dpiX = gScreen.dpiY = 192;
  Start();
  SettingsStore& record = Settings();
  record.AdditionalFilterCat1.Assign(u"Family");
  record.AdditionalFilterCat2.Assign(u"family");
  record.AdditionalFilterCat3.Assign(u"Gone");
  record.SE2FilterAlertDays = 9;
  OpenPage();
  SelectTab(kFilterTab);
  SpecialEventsPage& page = *Page();
  ASSERT_EQ(ComboCount(page.CategoryChoice(0)), 3);
  EXPECT_EQ(ComboText(page.CategoryChoice(0), 0), u"");
  EXPECT_EQ(ComboText(page.CategoryChoice(0), 1), u"Business");
  const int selected[] = {2, 0, 0, 0};
  for (int filter = 0; filter < 4; ++filter) EXPECT_EQ(ComboSelection(page.CategoryChoice(filter)), selected[filter]);
  EXPECT_EQ(ListViewRowText(page.FilterList(), 3), English(40735));

  ValidateRect(Window(), nullptr);
  ListViewSelect(page.FilterList(), 1);
  RECT client = {}, band = {};
  GetClientRect(Window(), &client);
  GetUpdateRect(Window(), &band, FALSE);
  EXPECT_EQ(band.top, 40);
  EXPECT_EQ(band.bottom, 180);
  EXPECT_EQ(band.right, client.right);
  EXPECT_EQ(page.SelectedFilter(), 1);
  EXPECT_EQ(Shown(page.WarningDays()), u"9");
  Choose(page.WarningDays(), 12);
  EXPECT_EQ(record.SE2FilterAlertDays, 12) << "stored before the page is left";
  ComboSelect(page.CategoryChoice(3), 1);
  Command(IDOK);
  EXPECT_EQ(Saved(&S::AdditionalFilterCat1), u"Family");
  EXPECT_EQ(Saved(&S::AdditionalFilterCat2), u"");
  EXPECT_EQ(Saved(&S::AdditionalFilterCat3), u"");
  EXPECT_EQ(Saved(&S::AdditionalFilterCat4), u"Business");
  EXPECT_EQ(Saved(&S::SE2FilterAlertDays), 12);
  EXPECT_EQ(Saved(&S::SE1FilterAlertDays), 0);
}

TEST_F(SpecialEventsTest, EveryTabFitsEachScreen) {
  WriteDatabase(u"\\Categories Database", {{{0x4001001F, 0, u"Holiday Cards and Greetings"}, {0x40020002, 1, u""}}});
  CheckEveryScreenInBothLanguages(L"special-events", kSpecialEventsTabCount, [&] { OpenPage(); },
                                  [&](int tab) { SelectTab(tab); });
}

}  // namespace
}  // namespace tw::test
