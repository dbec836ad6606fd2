// The Calendar page: its table against the page's description, then what
// only this page does, driven as a user would: the pinned month's check,
// the date samples, the title order, the marker strips and the preview.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "base/scaling.h"
#include "controls/icon_strip.h"
#include "pages/calendar_page.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "tests/ui/row_page_test.h"
#include "tools/screen_capture.h"

namespace tw::test {
namespace {

constexpr int kCalendarSlot = 1;
constexpr RowAt kPinnedRow{5, 9}, kDueDateRow{2, 10}, kDayTitleRow{3, 1}, kTimelinesStartRow{3, 14},
    kTitleOrderRow{7, 7};
constexpr int kAppointmentRightStrip = 4, kTaskRightStrip = 5;
constexpr std::int32_t kAllAppointmentMarkers = 479, kAllTaskMarkers = 383;
constexpr unsigned kPinnedText = 40914, kPinnedCaption = 40915, kDayTitleName = 40310;

class CalendarTest : public RowPageTest<CalendarPage, kCalendarSlot> {
 protected:
  // A tap in the middle of a strip's cell.
  void TapStrip(int strip, int cell) {
    LPARAM at = MAKELPARAM(ScaleX(16) * cell + ScaleX(8), ScaleY(8));
    SendMessageW(Page()->Strip(strip), WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(Page()->Strip(strip), WM_LBUTTONUP, 0, at);
    Pump();
  }
  tools::Capture Preview() {
    Sleep(100);
    RECT area = Page()->PreviewArea();
    MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&area), 2);
    tools::Capture capture;
    EXPECT_TRUE(tools::CaptureScreen(area, capture));
    return capture;
  }
};

TEST(CalendarPage, TableIsAsDescribed) {
  const Described rows[] = {
      {0, 1, 40262, 40323, 40324, u"dNumOfDays", 30, 1, 1}, {0, 3, 40922, 40922, 40935, u"SEventsOnClr"},
      {2, 7, 40923, 40942, 40943, u"FutureLimitTsksOnClr", 8, 40781},
      {2, 10, 40279, 40381, 40382, u"DueDateTsksDateFrmt"},
      {3, 8, 40924, 40945, 40946, u"FoldingDfltState", 2, 40947},
      {3, 11, 40295, 40421, 40422, u"AppendDateToTodayTtl"}, {3, 14, 40925, 40417, 40418, u"TimelinesStart"},
      {3, 15, 40926, 40949, 40950, u"TimelinesLength", 19, 6}, {3, 17, 40928, 40900, 40901, u"TimelinesHorZ", 2, 1, 1},
      {5, 8, 40932, 40910, 40911, u"MonthlyPopIconsSize", 0, 0, 6},
      {6, 2, 40304, 40441, 40442, u"MailHideWhenZeroMsgs"},
      {7, 6, 40321, 40476, 40477, u"CustomDayttlFrmtDefault"}, {7, 7, 40322, 0, 0, u""},
  };
  ExpectDescribed(CalendarTabs(),
                  {{40240, 6}, {40241, 4}, {40242, 14}, {40243, 17}, {40244, 0}, {40245, 9}, {40246, 7}, {40247, 7}},
                  rows);
}

TEST_F(CalendarTest, PinnedMonthNeedsTheHeightLimit) {
  OpenPage();
  Settings().dHeightLimit = ScaleX(150);
  Settings().PinnedMonthlyClr = 0;
  SelectRow(kPinnedRow);
  SetChecked(EditorWindow(kCheck), true);
  SelectTab(0);  // leaving the tab stores the row
  ASSERT_EQ(answerer_.boxes.size(), 1u);
  EXPECT_EQ(answerer_.boxes[0].caption, EnglishText(kPinnedCaption));
  wchar_t expected[256];
  swprintf(expected, 256, EnglishText(kPinnedText).c_str(), ScaleX(200));
  EXPECT_EQ(answerer_.boxes[0].text, expected);
  EXPECT_FALSE(IsChecked(EditorWindow(kCheck))) << "the check ends up cleared";
  EXPECT_EQ(Settings().PinnedMonthlyClr, 0);

  Settings().dHeightLimit = ScaleX(200);
  SelectRow(kPinnedRow);
  SetChecked(EditorWindow(kCheck), true);
  Command(IDOK);
  EXPECT_EQ(answerer_.boxes.size(), 1u) << "a high enough limit asks nothing";
  EXPECT_EQ(Saved(&SettingsStore::PinnedMonthlyClr), 1);
}

// The pictures fixed in the samples win over the locale's own order; the
// time lines' start offers every hour it may store.
TEST_F(CalendarTest, DateSamplesFollowTheirPictures) {
  wchar_t oldShort[80] = {};
  GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, oldShort, 80);
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, L"dd.MM.yyyy");
  SYSTEMTIME today;
  GetLocalTime(&today);
  OpenPage();
  SelectRow(kDueDateRow);
  wchar_t monthFirst[32], dayFirst[32];
  swprintf(monthFirst, 32, L"%d/%d/%02d", today.wMonth, today.wDay, today.wYear % 100);
  swprintf(dayFirst, 32, L"%02d.%02d.%d", today.wDay, today.wMonth, today.wYear);
  HWND combo = EditorWindow(kDropDown);
  EXPECT_EQ(ComboText(combo, 0), AsU16(dayFirst));
  EXPECT_EQ(ComboText(combo, 1), AsU16(monthFirst));
  SelectRow(kDayTitleRow);
  EXPECT_EQ(ComboCount(combo), 7);
  EXPECT_EQ(ComboText(combo, 4), AsU16(dayFirst)) << "the locale's formats sit between the pictures";
  SelectRow(kTimelinesStartRow);
  EXPECT_EQ(ComboCount(combo), 19) << "the hours 0 to 18, each stored as its position";
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, oldShort);
}

// An order out of range shows as the default one and reset repairs it;
// titles move one place at a time within the list's ends.
TEST_F(CalendarTest, TitleOrderResetsAndMovesWithinItsEnds) {
  Start();
  Settings().CalTitlesOrder0 = 9;
  OpenPage();
  SelectRow(kTitleOrderRow);
  HWND list = EditorWindow(kOrderList);
  EXPECT_EQ(ListViewRowText(list, 0), English(kDayTitleName));
  Press(EditorWindow(kOrderReset));
  EXPECT_EQ(Settings().CalTitlesOrder0, 0);
  EXPECT_EQ(Settings().CalTitlesOrder4, 4);
  ListViewSelect(list, 0);
  Press(EditorWindow(kOrderUp));
  EXPECT_EQ(Settings().CalTitlesOrder0, 0) << "nothing moves above the top";
  Press(EditorWindow(kOrderDown));
  EXPECT_EQ(Settings().CalTitlesOrder0, 1);
  EXPECT_EQ(Settings().CalTitlesOrder1, 0);
  EXPECT_EQ(ListViewRowText(list, 1), English(kDayTitleName));
  ListViewSelect(list, 5);
  Press(EditorWindow(kOrderDown));
  EXPECT_EQ(Settings().CalTitlesOrder5, 5) << "nothing moves below the bottom";
  Press(EditorWindow(kOrderUp));
  EXPECT_EQ(Settings().CalTitlesOrder4, 5);
  Command(IDOK);
  EXPECT_EQ(Saved(&SettingsStore::CalTitlesOrder0), 1);
  EXPECT_EQ(Saved(&SettingsStore::CalTitlesOrder4), 5);
}

// Strips offer only their own kind's markers and store the sum; the preview
// shows a change at once.
TEST_F(CalendarTest, StripsOfferTheirKindsFlagsAndStoreTheSum) {
  Start();
  Settings().ClrApptRightIcons = 511;  // 32 is no appointment marker
  Settings().ClrTaskRightIcons = 511;  // nor 128 a task marker
  Settings().ApptLeftAlignIcon1 = 32;
  OpenPage();
  SelectTab(kIconMarkerTab);
  auto marked = [&](int strip) { return MarkedValue(kMarkerStrips[strip], Page()->Strip(strip)); };
  EXPECT_EQ(marked(kAppointmentRightStrip), kAllAppointmentMarkers);
  EXPECT_EQ(marked(kTaskRightStrip), kAllTaskMarkers);
  EXPECT_EQ(marked(0), 0);
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  tools::Capture before = Preview();
  TapStrip(kAppointmentRightStrip, 0);  // the note marker, 1
  EXPECT_EQ(Settings().ClrApptRightIcons, kAllAppointmentMarkers - 1);
  EXPECT_NE(before.rows, Preview().rows) << "the preview shows the change at once";
  Command(IDOK);
  EXPECT_EQ(Saved(&SettingsStore::ClrApptRightIcons), kAllAppointmentMarkers - 1);
  EXPECT_FALSE(Stored(kCalendarKey.path, u"ClrTaskRightIcons").present) << "everything marked is the default";
}

// The pictures are kept under the build tree; the icon tab's is the README's.
TEST_F(CalendarTest, EveryTabFitsEachScreen) { CheckEveryTab(L"calendar", kCalendarTabCount); }

}  // namespace
}  // namespace tw::test
