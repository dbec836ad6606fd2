// The Special events page driven through its real controls: its forms
// through the shared walk, then what only this page does: date examples,
// the day span's mapping, the filters' categories and warning days.
#include <windows.h>

#include <gtest/gtest.h>

#include "pages/special_events_page.h"
#include "resources/resource_ids.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

constexpr int kGeneralTab = 0, kFilterTab = 1;
using S = SettingsStore;

using SpecialEventsTest = RowPageTest<SpecialEventsPage, 5>;
std::u16string Shown(HWND combo) { return ComboText(combo, ComboSelection(combo)); }

TEST(SpecialEventsPage, TableIsAsDescribed) {
  const Described rows[] = {{0, 1, 0, 40722, 0, u"SEventDays", 3, 38},
                            {0, 2, 0, 40723, 0, u"SEAlertBeforeDays", 16, 0},
                            {1, 1, 0, 40726, 0, u"SEApptsDaySpan", 0, 0, 15}};
  ExpectDescribed(SpecialEventsTabs(), {{40720, 4}, {40721, 1}}, rows);
}

// The examples are the day the page opens, in the pictures' order; both
// day-count lists start at the general warning days; a day span the list
// does not offer shows as 30 and is stored so.
TEST_F(SpecialEventsTest, DateExamplesDayCountsAndDaySpan) {
  const CalendarDate day = {2026, 3, 7, 6};
  FixPageToday(&day);
  Start();
  Settings().SEAlertBeforeDays = 5;
  Settings().SEApptsDaySpan = 45;
  OpenPage();
  FixPageToday(nullptr);
  HWND dates = Page()->FormControl(kGeneralTab, 2);
  const std::u16string examples[] = {English(40728), u"03/07", u"03/07/26", u"07/03", u"07/03/26"};
  ASSERT_EQ(ComboCount(dates), 5);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(ComboText(dates, i), examples[i]) << i;
  for (HWND days : {Page()->FormControl(kGeneralTab, 1), Page()->WarningDays()}) {
    EXPECT_EQ(ComboCount(days), 16);
    EXPECT_EQ(Shown(days), u"5");
  }
  EXPECT_EQ(Shown(Page()->FormControl(kFilterTab, 0)), u"30");
  Command(IDOK);
  EXPECT_EQ(Saved(&S::SEApptsDaySpan), 30);
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
  Settings().AdditionalFilterCat1.Assign(u"Family");
  Settings().AdditionalFilterCat2.Assign(u"family");
  Settings().AdditionalFilterCat3.Assign(u"Gone");
  Settings().SE2FilterAlertDays = 9;
  OpenPage();
  SelectTab(kFilterTab);
  SpecialEventsPage& page = *Page();
  EXPECT_EQ(ComboCount(page.CategoryChoice(0)), 3);
  const char16_t* shown[] = {u"Family", u"", u"", u""};
  for (int filter = 0; filter < 4; ++filter) EXPECT_EQ(Shown(page.CategoryChoice(filter)), shown[filter]);

  ValidateRect(Window(), nullptr);
  ListViewSelect(page.FilterList(), 1);
  RECT band = {};
  GetUpdateRect(Window(), &band, FALSE);
  EXPECT_EQ(std::make_pair(band.top, band.bottom), std::make_pair(40L, 180L));
  EXPECT_EQ(Shown(page.WarningDays()), u"9");
  Pick(page.WarningDays(), 12);
  EXPECT_EQ(Settings().SE2FilterAlertDays, 12) << "stored before the page is left";
  ComboSelect(page.CategoryChoice(3), 1);
  Command(IDOK);
  const std::u16string saved[] = {Saved(&S::AdditionalFilterCat1), Saved(&S::AdditionalFilterCat2),
                                  Saved(&S::AdditionalFilterCat3), Saved(&S::AdditionalFilterCat4)};
  EXPECT_EQ(saved[0] + u"," + saved[1] + u"," + saved[2] + u"," + saved[3], u"Family,,,Business");
}

TEST_F(SpecialEventsTest, EveryTabFitsEachScreen) { CheckEveryTab(L"special-events", kSpecialEventsTabCount); }

}  // namespace
}  // namespace tw::test
