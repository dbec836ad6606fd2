// The Fonts page driven as a user would: sizes chosen, the advanced switch
// ticked, rows chosen and their fonts changed, the menu's apply-size
// command; then the record and the registry are checked.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "app/shell.h"
#include "pages/common_controls.h"
#include "pages/fonts_page.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "tests/ui/app_harness.h"
#include "tests/ui/dialog_driver.h"

namespace tw::test {
namespace {

using F = FontsPage;

class FontsTest : public AppTest {
 protected:
  void OpenPage() {
    if (Window() == nullptr) Start();
    SelectPage(kFontsPage);
  }
  HWND Control(F::Control control) { return static_cast<FontsPage*>(Shell().slots[kFontsPage].get())->Window(control); }
  void Press(F::Control button) {
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(Control(button)), BN_CLICKED), LPARAM(Control(button)));
    Pump();
  }
  void TickAdvanced(bool on) {
    SetChecked(Control(F::kAdvanced), on);
    Press(F::kAdvanced);
  }
  void ChangeFont(int row, int marker, Step step) {
    TapTab(Control(F::kTabs), F::kFontsTab);
    ListViewSelect(Control(F::kFontList), row);
    Then(marker, std::move(step));
    PlaySteps([&] { Press(F::kChangeFont); });
  }
  std::uint32_t Saved(const std::u16string& name) {
    return ReadValue(registry(), kCurrentUser, u"Software\\Orvex\\Tidewell\\Fonts", name).dword;
  }
};

TEST_F(FontsTest, SizesStoreTheirNumberAndNoSelectionStoresNine) {
  Start();
  Settings().FontGnrlSize = 40;
  Settings().FontGnrlTitlesSize = 14;
  OpenPage();
  HWND general = Control(F::kGeneralSize), titles = Control(F::kTitleSize);
  EXPECT_EQ(ComboCount(general), 21);
  EXPECT_EQ(SendMessageW(general, CB_GETITEMDATA, 20, 0), 30);
  EXPECT_EQ(ComboSelection(general), -1) << "40 is not offered";
  EXPECT_EQ(ComboSelection(titles), 4);
  ComboSelect(titles, 10);
  Command(IDOK);
  EXPECT_EQ(Saved(u"FontGnrlSize"), 9u);
  EXPECT_EQ(Saved(u"FontGnrlTitlesSize"), 20u);
}

// Without the switch only the colour is chosen, through the colour picker.
TEST_F(FontsTest, AdvancedSwitchDisablesTheSizesAndOpensTheFontChooser) {
  OpenPage();
  Settings().FontMailRead.color = 0;
  ChangeFont(12, IDC_RED_SLIDER, [](HWND dialog) {  // FontMailRead
    TypeAndLeave(dialog, IDC_RED_VALUE, L"10");
    TapMenuBar(dialog, IDOK);
  });
  EXPECT_EQ(Settings().FontMailRead.color, RGB(10, 0, 0));
  const F::Control sizes[] = {F::kGeneralLabel, F::kGeneralSize, F::kTitleLabel, F::kTitleSize};
  for (bool on : {true, false, true}) {
    TickAdvanced(on);
    for (F::Control control : sizes) EXPECT_EQ(IsWindowEnabled(Control(control)), !on) << control;
  }
  EXPECT_TRUE(IsWindowEnabled(Control(F::kAdvanced)));
  // FontMsgsUnread, which the record keeps right after FontMsgsRead.
  std::uint8_t italic = FontOf(Settings(), FontRows()[22]).font.lfItalic;
  ChangeFont(22, IDC_FONT_SIZE, [](HWND dialog) {
    SendDlgItemMessageW(dialog, IDC_FONT_ITALIC, BM_CLICK, 0, 0);
    SendMessageW(dialog, WM_COMMAND, IDOK, 0);
  });
  EXPECT_NE(Settings().FontMsgsUnread.font.lfItalic, italic);
  EXPECT_EQ(Settings().FontMsgsRead.font.lfItalic, italic) << "its neighbour in the record is untouched";
  Command(IDOK);
  EXPECT_EQ(Saved(u"FontGnrlUseAdvncd"), 1u);
  EXPECT_EQ(Saved(u"FontMailReadlfColor"), RGB(10, 0, 0));
  OpenPage();
  EXPECT_TRUE(IsChecked(Control(F::kAdvanced)));
  EXPECT_FALSE(IsWindowEnabled(Control(F::kGeneralSize))) << "the rule holds when the page is made";
}

// The page's order is not the record's: each row names its own record.
TEST(FontsPage, RowsAreAsDescribed) {
  const std::tuple<int, std::u16string, unsigned, unsigned> described[] = {
      {12, u"FontMailRead", 40591, 40616},  {14, u"FontCalDayTitles", 40593, 40618},
      {20, u"FontNoteItems", 40957, 40957}, {22, u"FontMsgsUnread", 40959, 40959},
      {23, u"FontMsgsRead", 40960, 40960},  {25, u"FontSEGeneral", 40599, 40624},
      {29, u"FontSEFilter4", 40603, 40628}};
  std::span<const FontRow> rows = FontRows();
  ASSERT_EQ(rows.size(), 30u);
  for (auto [i, record, name, heading] : described)
    EXPECT_EQ(std::tuple(std::u16string(rows[i].record), rows[i].name, rows[i].heading),
              std::tuple(record, name, heading));
}

TEST_F(FontsTest, ApplyingTheGeneralSizeCopiesOnlyTheHeight) {
  Start();
  Settings().FontGeneral.font.lfHeight = 17;
  Settings().FontCalTasks.font.lfWeight = 700;
  Settings().FontCalTasks.color = 255;
  Settings().FontSEFilter4.font.lfHeight = 11;
  OpenPage();
  answerer_.AnswerYesNo(IDNO);
  Command(IDM_APPLY_FONT_SIZE);
  ASSERT_EQ(answerer_.boxes.size(), 1u);
  EXPECT_EQ(answerer_.boxes[0].caption, EnglishText(kAskApplyGeneralSize.caption));
  EXPECT_EQ(Settings().FontSEFilter4.font.lfHeight, 11) << "No changes nothing";
  answerer_.AnswerYesNo(IDYES);
  Command(IDM_APPLY_FONT_SIZE);
  for (const FontRow& row : FontRows()) EXPECT_EQ(FontOf(Settings(), row).font.lfHeight, 17) << Show(row.record);
  EXPECT_EQ(Settings().FontCalTasks.font.lfWeight, 700);
  Command(IDOK);
  EXPECT_EQ(Saved(u"FontSEFilter4lfHeight"), 17u);
  EXPECT_EQ(Saved(u"FontCalTaskslfColor"), 255u);
}

// Both tabs at each screen, with the advanced preview of a coloured font
// and the plain one of a font without colour.
TEST_F(FontsTest, BothTabsFitEachScreen) {
  auto open = [&] {
    Settings().FontCalTasks.color = RGB(200, 0, 0);
    OpenPage();
  };
  CheckEveryScreen(L"fonts", 3, open, [&](int shot) {
    if (shot == 0) return;
    TickAdvanced(shot == 1);
    TapTab(Control(F::kTabs), F::kFontsTab);
    ListViewSelect(Control(F::kFontList), shot);
  });
}

}  // namespace
}  // namespace tw::test
