// The Fonts page driven as a user would: sizes chosen, the advanced switch
// ticked, rows chosen and their fonts changed, the menu's apply-size
// command; then the record and the registry are checked.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>

#include "app/shell.h"
#include "base/scaling.h"
#include "pages/common_controls.h"
#include "pages/fonts_page.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "tests/ui/app_harness.h"
#include "tests/ui/dialog_driver.h"
#include "tests/ui/modal_step.h"

namespace tw::test {
namespace {

constexpr char16_t kFontsPath[] = u"Software\\Orvex\\Tidewell\\Fonts";
using F = FontsPage;

class FontsTest : public AppTest {
 protected:
  FontsPage* OpenPage() {
    if (Window() == nullptr) Start();
    SelectPage(kFontsPage);
    return static_cast<FontsPage*>(Shell().slots[kFontsPage].get());
  }
  HWND Control(F::Control control) {
    return static_cast<FontsPage*>(Shell().slots[kFontsPage].get())->Window(control);
  }
  void SelectTab(int tab) { TapTab(Control(F::kTabs), tab); }
  void Press(F::Control button) {
    HWND control = Control(button);
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), BN_CLICKED),
                 reinterpret_cast<LPARAM>(control));
    Pump();
  }
  void TickAdvanced(bool on) {
    SetChecked(Control(F::kAdvanced), on);
    Press(F::kAdvanced);
  }
  std::uint32_t Saved(const std::u16string& name) {
    return ReadValue(registry(), kCurrentUser, kFontsPath, name).dword;
  }
};

TEST_F(FontsTest, SizesStoreTheirNumberAndNoSelectionStoresNine) {
  Start();
  Settings().FontGnrlSize = 40;
  Settings().FontGnrlTitlesSize = 14;
  OpenPage();
  HWND general = Control(F::kGeneralSize), titles = Control(F::kTitleSize);
  EXPECT_EQ(ComboCount(general), 21);
  EXPECT_EQ(ComboText(general, 0), u"10");
  EXPECT_EQ(SendMessageW(general, CB_GETITEMDATA, 20, 0), 30);
  EXPECT_EQ(ComboSelection(general), -1) << "40 is not offered";
  EXPECT_EQ(ComboSelection(titles), 4);
  ComboSelect(titles, 10);
  Command(IDOK);
  EXPECT_EQ(Saved(u"FontGnrlSize"), 9u);
  EXPECT_EQ(Saved(u"FontGnrlTitlesSize"), 20u);
}

TEST_F(FontsTest, AdvancedSwitchDisablesTheSizes) {
  OpenPage();
  const F::Control sizes[] = {F::kGeneralLabel, F::kGeneralSize, F::kTitleLabel, F::kTitleSize};
  for (F::Control control : sizes) EXPECT_TRUE(IsWindowEnabled(Control(control)));
  TickAdvanced(true);
  for (F::Control control : sizes) EXPECT_FALSE(IsWindowEnabled(Control(control))) << control;
  EXPECT_TRUE(IsWindowEnabled(Control(F::kAdvanced)));
  TickAdvanced(false);
  for (F::Control control : sizes) EXPECT_TRUE(IsWindowEnabled(Control(control)));
  TickAdvanced(true);
  Command(IDOK);
  EXPECT_EQ(Saved(u"FontGnrlUseAdvncd"), 1u);
  OpenPage();
  EXPECT_TRUE(IsChecked(Control(F::kAdvanced)));
  EXPECT_FALSE(IsWindowEnabled(Control(F::kGeneralSize))) << "the rule holds when the page is made";
}

// The page's order is not the record's: each row must change its own
// record, in the simple mode through the colour picker alone.
TEST_F(FontsTest, EveryRowChangesItsOwnRecord) {
  OpenPage();
  SelectTab(F::kFontsTab);
  std::span<const FontRow> rows = FontRows();
  ASSERT_EQ(rows.size(), 30u);
  for (const FontRow& row : rows) FontOf(Settings(), row).color = 0;
  for (int i = 0; i < int(rows.size()); ++i) {
    SCOPED_TRACE(Show(rows[i].record));
    EXPECT_EQ(ListViewRowText(Control(F::kFontList), i), AsU16(EnglishText(rows[i].name).c_str()));
    ListViewSelect(Control(F::kFontList), i);
    WithModal(IDC_RED_SLIDER, [i](HWND dialog) {
      TypeAndLeave(dialog, IDC_RED_VALUE, std::to_wstring(10 + i));
      TapMenuBar(dialog, IDOK);
    }, [&] { Press(F::kChangeFont); });
  }
  Command(IDOK);
  for (int i = 0; i < int(rows.size()); ++i)
    EXPECT_EQ(Saved(rows[i].record + std::u16string(u"lfColor")), RGB(10 + i, 0, 0)) << Show(rows[i].record);
}

TEST_F(FontsTest, AdvancedChangeOpensTheFontChooser) {
  OpenPage();
  TickAdvanced(true);
  SelectTab(F::kFontsTab);
  const FontRow& row = FontRows()[22];  // FontMsgsUnread, which the record keeps after FontMsgsRead
  ListViewSelect(Control(F::kFontList), 22);
  FontRecord& record = FontOf(Settings(), row);
  std::uint8_t italic = record.font.lfItalic;
  WithModal(IDC_FONT_SIZE, [](HWND dialog) {
    SendDlgItemMessageW(dialog, IDC_FONT_ITALIC, BM_CLICK, 0, 0);
    SendMessageW(dialog, WM_COMMAND, IDOK, 0);
  }, [&] { Press(F::kChangeFont); });
  EXPECT_NE(record.font.lfItalic, italic);
  EXPECT_EQ(Settings().FontMsgsRead.font.lfItalic, italic) << "its neighbour in the record is untouched";
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
  EXPECT_EQ(Settings().FontCalTasks.color, 255);
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
    if (shot == 1) {
      TickAdvanced(true);
      SelectTab(F::kFontsTab);
      ListViewSelect(Control(F::kFontList), 1);
    }
    if (shot == 2) {
      TickAdvanced(false);
      ListViewSelect(Control(F::kFontList), 2);
    }
  });
}

}  // namespace
}  // namespace tw::test
