// The Colours page driven as a user would: rows chosen, the picker played,
// schemes saved, applied and deleted; then the record, the registry and the
// scheme files are checked.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "base/scaling.h"
#include "data/schemes.h"
#include "pages/colours_page.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "tests/ui/dialog_driver.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

constexpr int kColoursSlot = 7;
constexpr char16_t kColorsPath[] = u"Software\\Orvex\\Tidewell\\Colors";
constexpr char16_t kFontsPath[] = u"Software\\Orvex\\Tidewell\\Fonts";
constexpr char16_t kBackup[] = u"\\My Documents\\TW_Settings.bak";
constexpr int kGeneralFontColourRow = 2;
using C = ColoursPage;

class ColoursTest : public RowPageTest<ColoursPage, kColoursSlot> {
 protected:
  void TearDown() override {
    for (const std::u16string& name : ListSchemes(files(), Settings().InstallFolder.View()))
      DeleteScheme(files(), Settings().InstallFolder.View(), name);
    files().Delete(kBackup);
    AppTest::TearDown();
  }
  HWND Control(C::Control control) { return Page()->Window(control); }
  void Press(C::Control button) { RowPageTest::Press(Control(button)); }
  void SelectTab(int tab) { TapTab(Control(C::kTabs), tab); }
  // Change colour on a row, the picker played by `step`.
  void ChangeColour(int row, Step step) {
    ListViewSelect(Control(C::kColourList), row);
    Then(IDC_RED_SLIDER, std::move(step));
    PlaySteps([&] { Press(C::kChangeColour); });
  }
  COLORREF SwatchCentre() {
    RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    return PixelAt(Window(), {ScaleX(134), ScaleY(94)});
  }
  void SaveScheme(const wchar_t* name) {
    SetText(Control(C::kSchemeName), AsU16(name));
    Press(C::kSaveScheme);
  }
  std::u16string SchemePath(const char16_t* fileName) {
    return std::u16string(Settings().InstallFolder.View()) + u"\\Schemes\\" + fileName;
  }
  std::wstring LastCaption() { return answerer_.boxes.empty() ? L"" : answerer_.boxes.back().caption; }
};

// The rows' order is not the record's: each row names its own setting.
TEST(ColoursPage, RowsAreAsDescribed) {
  const std::tuple<int, unsigned, std::u16string> described[] = {
      {0, 40505, u"SeperatorLineClr"}, {2, 40507, u"GeneralFontColor"}, {11, 40516, u"TskBreakingLineClr"},
      {12, 40517, u"ClrStatusFree"},   {15, 40520, u"ClrStatusOutofoffice"}};
  std::span<const ColourRow> rows = ColourRows();
  ASSERT_EQ(rows.size(), 16u);
  for (auto [i, name, value] : described)
    EXPECT_EQ(std::pair(rows[i].name, std::u16string(SpecOf(rows[i].field).second->name)), std::pair(name, value));
}

TEST_F(ColoursTest, NoneStoresNoColourAndTheDefaultComesBack) {
  WriteDword(registry(), kCurrentUser, kColorsPath, u"GeneralFontColor", 255);
  OpenPage();
  ListViewSelect(Control(C::kColourList), kGeneralFontColourRow);
  EXPECT_EQ(SwatchCentre(), RGB(255, 0, 0)) << "the swatch shows the chosen row's colour";
  ChangeColour(kGeneralFontColourRow, [](HWND dialog) {
    TapMenuBar(dialog, IDM_NO_COLOUR);
    TapMenuBar(dialog, IDOK);
  });
  EXPECT_EQ(Settings().GeneralFontColor, -1);
  EXPECT_EQ(SwatchCentre(), RGB(255, 255, 255)) << "no colour shows white, not black";
  ChangeColour(kGeneralFontColourRow, [](HWND dialog) { TapMenuBar(dialog, IDM_CANCEL); });
  EXPECT_EQ(Settings().GeneralFontColor, -1) << "cancel keeps the colour";
  Command(IDOK);
  EXPECT_FALSE(ReadValue(registry(), kCurrentUser, kColorsPath, u"GeneralFontColor").present);
  SettingsStore reloaded;
  LoadSettings(reloaded, {registry(), locale(), files()});
  EXPECT_EQ(reloaded.GeneralFontColor, -1);
}

TEST_F(ColoursTest, SchemesSaveApplyAndDelete) {
  WriteDword(registry(), kCurrentUser, kColorsPath, u"GeneralFontColor", 255);
  WriteDword(registry(), kCurrentUser, kFontsPath, u"FontGenerallfHeight", 20);
  OpenPage();
  SelectTab(C::kSchemesTab);
  Press(C::kApplyScheme);
  EXPECT_EQ(LastCaption(), EnglishText(kNoSchemeSelected.caption)) << "an empty list has nothing to apply";
  SaveScheme(L"");
  EXPECT_EQ(LastCaption(), EnglishText(kSchemeNameEmpty.caption));

  SaveScheme(L"Mine");
  EXPECT_EQ(LastCaption(), EnglishText(kSchemeSaved.caption));
  EXPECT_EQ(ListViewRowText(Control(C::kSchemeList), 0), u"Mine.scm");
  EXPECT_EQ(GetText(Control(C::kSchemeName)), u"");
  std::vector<std::uint8_t> saved;
  ASSERT_TRUE(files().ReadAll(SchemePath(u"Mine.scm"), saved));

  // The user's colours and fonts change, then the scheme under that name is
  // offered again: it is refused and the file kept.
  WriteDword(registry(), kCurrentUser, kColorsPath, u"GeneralFontColor", 7);
  WriteDword(registry(), kCurrentUser, kFontsPath, u"FontGenerallfHeight", 30);
  SaveScheme(L"Mine");
  EXPECT_EQ(LastCaption(), EnglishText(kSchemeExists.caption));
  std::vector<std::uint8_t> after;
  files().ReadAll(SchemePath(u"Mine.scm"), after);
  EXPECT_EQ(after, saved);
  EXPECT_EQ(ListViewCount(Control(C::kSchemeList)), 1);

  SaveScheme(L"Other");
  ListViewSelect(Control(C::kSchemeList), 0);
  EXPECT_EQ(ListViewRowText(Control(C::kSchemeList), 0), u"Other.scm");
  answerer_.AnswerYesNo(IDNO);
  Press(C::kDeleteScheme);
  EXPECT_TRUE(files().Exists(SchemePath(u"Other.scm")));
  answerer_.AnswerYesNo(IDYES);
  Press(C::kDeleteScheme);
  EXPECT_FALSE(files().Exists(SchemePath(u"Other.scm")));
  ASSERT_EQ(ListViewCount(Control(C::kSchemeList)), 1);

  ListViewSelect(Control(C::kSchemeList), 0);
  std::size_t boxes = answerer_.boxes.size();
  Press(C::kApplyScheme);
  EXPECT_EQ(Window(), nullptr) << "applying a scheme ends the program";
  ASSERT_EQ(answerer_.boxes.size(), boxes + 1) << "only the question, no success message";
  EXPECT_EQ(LastCaption(), EnglishText(kAskLoadScheme.caption));
  EXPECT_EQ(Saved(&SettingsStore::GeneralFontColor), 255);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kFontsPath, u"FontGenerallfHeight").dword, 20u);
  EXPECT_EQ(Settings().GeneralFontColor, 255) << "the record was read back";
  std::vector<std::uint8_t> backup;
  ASSERT_TRUE(files().ReadAll(kBackup, backup));
  EXPECT_NE(std::string(backup.begin(), backup.end()).find("\"GeneralFontColor\"=dword:7"), std::string::npos);
}

// A scheme that breaks half way leaves the colour and font keys cleared
// (the backup written before the rewrite can bring them back).
TEST_F(ColoursTest, FailedApplyLeavesTheKeysCleared) {
  WriteDword(registry(), kCurrentUser, kColorsPath, u"HighlightBgClr", 9);
  WriteDword(registry(), kCurrentUser, kFontsPath, u"FontGenerallfHeight", 20);
  Start();
  files().MakeDirectory(std::u16string(Settings().InstallFolder.View()) + u"\Schemes");
  std::string broken = "\r\n[Software\\Orvex\\Tidewell\\Colors]\r\n\"GeneralFontColor\"=dword:7\r\n\r\nbroken\r\n";
  ASSERT_TRUE(files().WriteAll(SchemePath(u"Broken.scm"), broken.data(), broken.size()));
  OpenPage();
  SelectTab(C::kSchemesTab);
  ListViewSelect(Control(C::kSchemeList), 0);
  Press(C::kApplyScheme);
  EXPECT_EQ(LastCaption(), EnglishText(kSchemeLoadFailed.caption));
  ASSERT_NE(Window(), nullptr);
  EXPECT_FALSE(ReadValue(registry(), kCurrentUser, kColorsPath, u"HighlightBgClr").present);
  EXPECT_FALSE(ReadValue(registry(), kCurrentUser, kFontsPath, u"FontGenerallfHeight").present);
  EXPECT_TRUE(files().Exists(kBackup));
}

// Both tabs at each screen, with a colour and with none; the pictures are
// kept under the build tree for looking at.
TEST_F(ColoursTest, BothTabsFitEachScreen) {
  auto open = [&] {
    Settings().GeneralFontColor = -1;
    Settings().SeperatorLineClr = RGB(0, 128, 0);
    OpenPage();
  };
  CheckEveryScreen(L"colours", 2, open, [&](int shot) {
    SelectTab(shot == 0 ? C::kColoursTab : C::kSchemesTab);
    if (shot == 1 && !files().Exists(SchemePath(u"Evening.scm"))) SaveScheme(L"Evening");
  });
  DeleteScheme(files(), Settings().InstallFolder.View(), u"Evening.scm");
}

}  // namespace
}  // namespace tw::test
