// The Calendar page driven as a user would: rows selected in the lists,
// editors changed, tabs and pages switched, strips tapped, Done pressed;
// then the record and the registry are checked.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

#include "app/shell.h"
#include "base/scaling.h"
#include "controls/icon_strip.h"
#include "pages/calendar_page.h"
#include "pages/common_controls.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "settings/schema.h"
#include "tests/ui/app_harness.h"
#include "tests/ui/row_page_test.h"
#include "tools/screen_capture.h"

namespace tw::test {
namespace {

constexpr int kCalendarSlot = 1;
constexpr char16_t kCalendarPath[] = u"Software\\Orvex\\Tidewell\\Calendar";
constexpr RowAt kNumOfDaysRow{0, 1}, kTimelinesLengthRow{3, 15}, kVerticalZoomRow{3, 16}, kPinnedRow{5, 9},
    kDueDateRow{2, 10}, kDayTitleRow{3, 1}, kTitleOrderRow{7, 7};
constexpr int kAppointmentRightStrip = 4, kTaskRightStrip = 5;
constexpr std::int32_t kAllAppointmentMarkers = 479, kAllTaskMarkers = 383;
constexpr unsigned kPinnedText = 40914, kPinnedCaption = 40915;

const ValueSpec* CalendarValue(NumberField field) {
  for (const ValueSpec& value : kCalendarKey.values)
    if (value.dword == field) return &value;
  return nullptr;
}

class CalendarTest : public RowPageTest<CalendarPage, kCalendarSlot> {
 protected:
  void Press(Editor button) {
    HWND control = EditorWindow(button);
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), BN_CLICKED),
                 reinterpret_cast<LPARAM>(control));
  }
  void Done() { Command(IDOK); }
  std::u16string Shown() { return ComboText(EditorWindow(kDropDown), ComboSelection(EditorWindow(kDropDown))); }
  std::uint32_t Saved(const char16_t* name) { return ReadValue(registry(), kCurrentUser, kCalendarPath, name).dword; }
  // A tap in the middle of a strip's cell.
  void TapStrip(int strip, int cell) {
    HWND window = Page()->Strip(strip);
    LPARAM at = MAKELPARAM(ScaleX(16) * cell + ScaleX(8), ScaleY(8));
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(window, WM_LBUTTONUP, 0, at);
    Pump();
  }
};

// Every row of every tab: the editor shows the record's value with the
// row's texts, and a changed editor is stored when the row is left.
TEST_F(CalendarTest, EveryRowShowsAndStoresItsSetting) {
  CalendarPage* page = OpenPage();
  Settings().dHeightLimit = ScaleX(400);  // the pinned month view may be stored
  std::span<const RowTab> tabs = CalendarTabs();
  for (int tab = 0; tab < int(tabs.size()); ++tab) {
    for (int number = 1; number <= int(tabs[tab].rows.size()); ++number) {
      const Row& row = tabs[tab].rows[number - 1];
      SCOPED_TRACE("tab " + std::to_string(tab) + " row " + std::to_string(number));
      SettingsStore& record = Settings();
      if (row.editor == EditorKind::DropDown) record.*row.number = row.rule(1);
      if (row.editor == EditorKind::Check) record.*row.number = 1;
      if (row.editor == EditorKind::Text) (record.*row.text).Assign(u"Inbox A");
      SelectRow({tab, number});
      EXPECT_EQ(ListViewRowText(page->List(tab), number - 1), AsU16(EnglishText(row.name).c_str()));
      std::wstring tip = EnglishText(row.editor == EditorKind::Order ? row.name : row.tip);
      EXPECT_EQ(GetText(EditorWindow(kTip)), AsU16(tip.c_str()));
      int last = 0;
      switch (row.editor) {
        case EditorKind::DropDown:
          EXPECT_EQ(ComboSelection(EditorWindow(kDropDown)), 1);
          EXPECT_EQ(GetText(EditorWindow(kCaption)), AsU16(EnglishText(row.caption).c_str()));
          last = ComboCount(EditorWindow(kDropDown)) - 1;
          ComboSelect(EditorWindow(kDropDown), last);
          break;
        case EditorKind::Check:
          EXPECT_TRUE(IsChecked(EditorWindow(kCheck)));
          EXPECT_EQ(GetText(EditorWindow(kCheck)), AsU16(EnglishText(row.caption).c_str()));
          SetChecked(EditorWindow(kCheck), false);
          break;
        case EditorKind::Text:
          EXPECT_EQ(GetText(EditorWindow(kText)), u"Inbox A");
          SetText(EditorWindow(kText), u"Inbox B");
          break;
        case EditorKind::Order:
          EXPECT_TRUE(IsWindowVisible(EditorWindow(kOrderList)));
          break;
      }
      Deselect();
      if (row.editor == EditorKind::DropDown) EXPECT_EQ(record.*row.number, row.rule(last));
      if (row.editor == EditorKind::Check) EXPECT_EQ(record.*row.number, 0);
      if (row.editor == EditorKind::Text) EXPECT_EQ((record.*row.text).View(), u"Inbox B");
    }
  }
  SettingsStore stored = {};
  for (const RowTab& tab : tabs)
    for (const Row& row : tab.rows)
      if (row.number != nullptr) stored.*row.number = Settings().*row.number;
  Done();
  for (const RowTab& tab : tabs) {
    for (const Row& row : tab.rows) {
      const ValueSpec* value = row.number ? CalendarValue(row.number) : nullptr;
      if (value == nullptr) continue;
      SCOPED_TRACE(Show(value->name));
      StoredValue saved = ReadValue(registry(), kCurrentUser, kCalendarPath, value->name);
      if (saved.present) EXPECT_EQ(std::int32_t(saved.dword), stored.*row.number);
    }
  }
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kCalendarPath, u"MailCustomInboxStr").text, u"Inbox B");
}

TEST_F(CalendarTest, NumberRowsShowTheirOffsets) {
  OpenPage();
  Settings().dNumOfDays = 1;
  SelectRow(kNumOfDaysRow);
  EXPECT_EQ(Shown(), u"1");
  ComboSelect(EditorWindow(kDropDown), ComboCount(EditorWindow(kDropDown)) - 1);

  Settings().TimelinesLength = 0;
  SelectRow(kTimelinesLengthRow);
  EXPECT_EQ(Settings().dNumOfDays, 30) << "stored when another tab's row was chosen";
  EXPECT_EQ(Shown(), u"6");
  Deselect();
  Settings().TimelinesLength = 18;
  SelectRow(kTimelinesLengthRow);
  EXPECT_EQ(Shown(), u"24");

  // A zoom of 0 has no entry: nothing is selected and the value survives.
  Settings().TimelinesVertZ = 0;
  SelectRow(kVerticalZoomRow);
  EXPECT_EQ(ComboSelection(EditorWindow(kDropDown)), -1);
  Deselect();
  EXPECT_EQ(Settings().TimelinesVertZ, 0);
  Settings().TimelinesVertZ = 2;
  SelectRow(kVerticalZoomRow);
  EXPECT_EQ(Shown(), u"2");
  Done();
  EXPECT_EQ(Saved(u"dNumOfDays"), 30u);
  EXPECT_EQ(Saved(u"TimelinesVertZ"), 2u);
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
  Done();
  EXPECT_EQ(answerer_.boxes.size(), 1u) << "a high enough limit asks nothing";
  EXPECT_EQ(Saved(u"PinnedMonthlyClr"), 1u);
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
  Deselect();
  SelectRow(kDayTitleRow);
  EXPECT_EQ(ComboCount(combo), 7);
  EXPECT_EQ(ComboText(combo, 4), AsU16(dayFirst)) << "the locale's formats sit between the pictures";
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, oldShort);
}

TEST_F(CalendarTest, TitleOrderMovesWithinItsEnds) {
  OpenPage();
  SelectRow(kTitleOrderRow);
  HWND list = EditorWindow(kOrderList);
  ListViewSelect(list, 0);
  Press(kOrderUp);
  EXPECT_EQ(Settings().CalTitlesOrder0, 0) << "nothing moves above the top";
  Press(kOrderDown);
  EXPECT_EQ(Settings().CalTitlesOrder0, 1);
  EXPECT_EQ(Settings().CalTitlesOrder1, 0);
  EXPECT_EQ(ListViewRowText(list, 1), AsU16(EnglishText(40310).c_str()));
  ListViewSelect(list, 5);
  Press(kOrderDown);
  EXPECT_EQ(Settings().CalTitlesOrder5, 5) << "nothing moves below the bottom";
  Press(kOrderUp);
  EXPECT_EQ(Settings().CalTitlesOrder4, 5);
  Done();
  EXPECT_EQ(Saved(u"CalTitlesOrder0"), 1u);
  EXPECT_EQ(Saved(u"CalTitlesOrder4"), 5u);
}

TEST_F(CalendarTest, OrderResetsAndRepairsPartsOutOfRange) {
  Start();
  Settings().CalTitlesOrder0 = 9;
  Settings().CalTitlesOrder1 = 3;
  Settings().CalTitlesOrder3 = 1;
  OpenPage();
  SelectRow(kTitleOrderRow);
  EXPECT_EQ(ListViewRowText(EditorWindow(kOrderList), 0), AsU16(EnglishText(40310).c_str()));
  Press(kOrderReset);
  EXPECT_EQ(Settings().CalTitlesOrder0, 0);
  EXPECT_EQ(Settings().CalTitlesOrder1, 1);
  EXPECT_EQ(Settings().CalTitlesOrder3, 3);
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
  Done();  // destruction stores; an empty drop-down keeps the value
  EXPECT_EQ(Saved(u"dNumOfDays"), 10u);
}

TEST_F(CalendarTest, StripsOfferTheirKindsFlagsAndStoreTheSum) {
  Start();
  Settings().ClrApptRightIcons = 511;  // 32 is no appointment marker
  Settings().ClrTaskRightIcons = 511;  // nor 128 a task marker
  Settings().ApptLeftAlignIcon1 = 32;
  OpenPage();
  SelectTab(kIconMarkerTab);
  EXPECT_EQ(MarkedValue(kMarkerStrips[kAppointmentRightStrip], Page()->Strip(kAppointmentRightStrip)),
            kAllAppointmentMarkers);
  EXPECT_EQ(MarkedValue(kMarkerStrips[kTaskRightStrip], Page()->Strip(kTaskRightStrip)), kAllTaskMarkers);
  EXPECT_EQ(MarkedValue(kMarkerStrips[0], Page()->Strip(0)), 0);
  TapStrip(kAppointmentRightStrip, 0);  // the note marker, 1
  EXPECT_EQ(Settings().ClrApptRightIcons, kAllAppointmentMarkers - 1);
  Done();
  EXPECT_EQ(Saved(u"ClrApptRightIcons"), std::uint32_t(kAllAppointmentMarkers - 1));
  EXPECT_FALSE(ReadValue(registry(), kCurrentUser, kCalendarPath, u"ClrTaskRightIcons").present)
      << "everything marked is the default";
}

tools::Capture CapturePreview(CalendarPage* page, HWND window) {
  RECT area = page->PreviewArea();
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
  tools::Capture capture;
  EXPECT_TRUE(tools::CaptureScreen(area, capture));
  return capture;
}

TEST_F(CalendarTest, PreviewFollowsTheStrips) {
  Start();
  Settings().ClrApptRightIcons = 0;
  OpenPage();
  SelectTab(kIconMarkerTab);
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  Sleep(100);
  tools::Capture before = CapturePreview(Page(), Window());
  TapStrip(kAppointmentRightStrip, 1);
  Sleep(100);
  tools::Capture after = CapturePreview(Page(), Window());
  EXPECT_EQ(Settings().ClrApptRightIcons, 2);
  EXPECT_NE(before.rows, after.rows) << "the preview shows the new marker at once";
}

// Every tab at each screen, with a row of each kind shown; the pictures are
// kept under the build tree for looking at.
TEST_F(CalendarTest, EveryTabFitsEachScreen) {
  CheckEveryScreen(L"calendar", kCalendarTabCount, [&] { OpenPage(); }, [&](int tab) {
    SelectTab(tab);
    // The first row, then the last, so each kind of editor is laid out.
    int rows = int(CalendarTabs()[tab].rows.size());
    if (rows == 0) return;
    SelectRow({tab, 1});
    ExpectLayoutFits("first row of tab " + std::to_string(tab));
    SelectRow({tab, rows});
  });
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// Not a check: how long the page takes to open the first time and to switch
// tabs, against switching to the About page. Run on request with
// --gtest_also_run_disabled_tests --gtest_filter='*Timing*'.
TEST_F(CalendarTest, DISABLED_TimingOfOpeningAndTabs) {
  using Clock = std::chrono::steady_clock;
  auto since = [](Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
  };
  std::vector<double> open, tabs, about;
  for (int run = 0; run < 10; ++run) {
    Start(kAboutPage);
    auto start = Clock::now();
    SelectPage(kCalendarSlot);
    open.push_back(since(start));
    start = Clock::now();
    for (int tab = 1; tab < kCalendarTabCount; ++tab) SelectTab(tab);
    tabs.push_back(since(start) / (kCalendarTabCount - 1));
    start = Clock::now();
    SelectPage(kAboutPage);
    about.push_back(since(start));
    DestroyWindow(Window());
    Pump();
  }
  std::printf("calendar first open %.2f ms, tab switch %.2f ms, switch to About %.2f ms (medians of 10)\n",
              Median(open), Median(tabs), Median(about));
}

}  // namespace
}  // namespace tw::test
