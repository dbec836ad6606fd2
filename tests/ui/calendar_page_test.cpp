// The Calendar page driven as a user would: rows selected in the lists,
// editors changed, tabs and pages switched, strips tapped, Done pressed;
// then the record and the registry are checked.
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
constexpr RowAt kNumOfDaysRow{0, 1}, kTimelinesLengthRow{3, 15}, kVerticalZoomRow{3, 16}, kPinnedRow{5, 9},
    kDueDateRow{2, 10}, kDayTitleRow{3, 1}, kTitleOrderRow{7, 7};
constexpr int kAppointmentRightStrip = 4, kTaskRightStrip = 5;
constexpr std::int32_t kAllAppointmentMarkers = 479, kAllTaskMarkers = 383;
constexpr unsigned kPinnedText = 40914, kPinnedCaption = 40915, kDayTitleName = 40310;

class CalendarTest : public RowPageTest<CalendarPage, kCalendarSlot> {
 protected:
  std::u16string Shown() { return ComboText(EditorWindow(kDropDown), ComboSelection(EditorWindow(kDropDown))); }
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

TEST_F(CalendarTest, EveryRowShowsAndStoresItsSetting) {
  Start(kAboutPage);
  Settings().dHeightLimit = ScaleX(400);  // the pinned month view may be stored
  WalkEveryRow(CalendarTabs());
}

TEST_F(CalendarTest, NumberRowsShowTheirOffsets) {
  OpenPage();
  Settings().dNumOfDays = 1;
  SelectRow(kNumOfDaysRow);
  EXPECT_EQ(Shown(), u"1");
  ComboSelect(EditorWindow(kDropDown), ComboCount(EditorWindow(kDropDown)) - 1);
  for (auto [length, shown] : {std::pair{0, u"6"}, std::pair{18, u"24"}}) {
    Settings().TimelinesLength = length;
    SelectRow(kTimelinesLengthRow);
    EXPECT_EQ(Shown(), shown);
    Deselect();
  }
  EXPECT_EQ(Settings().dNumOfDays, 30) << "stored when another tab's row was chosen";
  // A zoom of 0 has no entry: nothing is selected and the value survives.
  Settings().TimelinesVertZ = 0;
  SelectRow(kVerticalZoomRow);
  EXPECT_EQ(ComboSelection(EditorWindow(kDropDown)), -1);
  Deselect();
  EXPECT_EQ(Settings().TimelinesVertZ, 0);
  Settings().TimelinesVertZ = 2;
  SelectRow(kVerticalZoomRow);
  EXPECT_EQ(Shown(), u"2");
  Command(IDOK);
  EXPECT_EQ(Saved(&SettingsStore::dNumOfDays), 30);
  EXPECT_EQ(Saved(&SettingsStore::TimelinesVertZ), 2);
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

// The pictures fixed in the samples win over the locale's own order.
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

TEST_F(CalendarTest, LeavingThePageStoresAndComingBackShowsNoRow) {
  OpenPage();
  Settings().dNumOfDays = 3;
  SelectRow(kNumOfDaysRow);
  ComboSelect(EditorWindow(kDropDown), 9);
  SelectPage(kAboutPage);
  EXPECT_EQ(Settings().dNumOfDays, 10);
  SelectPage(kCalendarSlot);
  EXPECT_EQ(ListViewSelection(Page()->List(0)), -1);
  EXPECT_FALSE(IsWindowVisible(EditorWindow(kDropDown)));

  SelectRow(kNumOfDaysRow);
  ComboSelect(EditorWindow(kDropDown), 4);
  Page()->Fill(99, 0);  // rows outside a tab do nothing
  Page()->Store(0, 0);
  EXPECT_EQ(Settings().dNumOfDays, 10);
  ComboSelect(EditorWindow(kDropDown), -1);
  Command(IDOK);  // destruction stores; an empty drop-down keeps the value
  EXPECT_EQ(Saved(&SettingsStore::dNumOfDays), 10);
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

// Every tab at each screen, with the first and the last row shown, so each
// kind of editor is laid out; the pictures are kept under the build tree.
TEST_F(CalendarTest, EveryTabFitsEachScreen) {
  CheckEveryScreen(L"calendar", kCalendarTabCount, [&] { OpenPage(); }, [&](int tab) {
    SelectTab(tab);
    int rows = int(CalendarTabs()[tab].rows.size());
    if (rows == 0) return;
    SelectRow({tab, 1});
    ExpectLayoutFits("first row of tab " + std::to_string(tab));
    SelectRow({tab, rows});
  });
}

}  // namespace
}  // namespace tw::test
