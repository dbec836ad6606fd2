// The category list, the icon chooser and the filter panel driven as a user
// would: swatches and bitmaps tapped, the dialogs played, the folder chosen
// and cleared, filters renamed and given categories; then the registry and
// the files are checked, after Done or after Cancel.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "app/shell.h"
#include "base/scaling.h"
#include "controls/colour_picker.h"
#include "controls/scroller.h"
#include "data/icon_sets.h"
#include "pages/common_controls.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "tests/support/make_bitmap.h"
#include "tests/ui/dialog_driver.h"
#include "tests/ui/layout_check.h"
#include "tests/ui/recording_parent.h"

namespace tw::test {
namespace {

constexpr char16_t kCategoriesPath[] = u"Software\\Orvex\\Tidewell\\Categories";
constexpr char16_t kFiltersFile[] = u"\\Program Files\\Orvex\\Tidewell\\TWFilters.txt";
constexpr char16_t kIcons[] = u"\\twtest\\CategoryIcons";
constexpr int kRowHeight = 24;  // the list's rows, in 96-dpi units
using L = CategoryListView;
using F = FilterPanel;

// In list order: equal names but for case keep database order, and a name
// in another script sorts after the Latin ones.
const char16_t* const kNames[] = {u"Alpha", u"alpha", u"Business", u"Zeta", u"\u041f\u0440\u0438\u0432\u0435\u0442"};
enum Row { kAlpha, kAlphaLower, kBusiness, kZeta, kCyrillic };

std::vector<std::uint8_t> Icon(std::uint8_t blue) { return MakeBitmap(24, 2, {{blue, 0, 0, blue, 0, 0}, {0, 0, 0, 0, 0, 0}}); }

class CategoryPagesTest : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    WriteDatabase(u"\\Categories Database", {{{0x4001001F, 0, u"Alpha"}, {0x40020002, 1, u""}},
                                             {{0x4001001F, 0, kNames[kCyrillic]}, {0x40020002, 2, u""}},
                                             {{0x4001001F, 0, u"Zeta"}, {0x40020002, 3, u""}},
                                             {{0x4001001F, 0, u"alpha"}, {0x40020002, 4, u""}},
                                             {{0x4001001F, 0, u"Business"}, {0x40020002, 5, u""}}});
    // The category icons folder is also the additional icons folder, so
    // the chooser offers the categories' own files too.
    files().MakeDirectory(kIcons);
    files().MakeDirectory(std::u16string(kIcons) + u"\\Sub");
    PutText(u"Software\\Orvex\\Tidewell", u"TWIconsFolder", kIcons);
    PutText(kCategoriesPath, u"AdditionalIconsFolder", kIcons);
    Write(u"Business.bmp", Icon(10));
    Write(u"Zeta.bmp", Icon(20));
    Write(u"Sub\\new.bmp", Icon(30));
    Write(u"Sub\\not-an-icon.png", Icon(40));
  }
  void Write(const std::u16string& name, const std::vector<std::uint8_t>& bytes) {
    ASSERT_TRUE(files().WriteAll(std::u16string(kIcons) + u"\\" + name, bytes.data(), bytes.size()));
  }
  std::vector<std::uint8_t> Read(const std::u16string& name) {
    std::vector<std::uint8_t> bytes;
    files().ReadAll(std::u16string(kIcons) + u"\\" + name, bytes);
    return bytes;
  }
  FILETIME Written(const std::u16string& name) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    GetFileAttributesExW(AsWide((std::u16string(kIcons) + u"\\" + name).c_str()), GetFileExInfoStandard, &data);
    return data.ftLastWriteTime;
  }

  CategoryListView& List() { return *Shell().categoryList; }
  FilterPanel& Panel() { return *Shell().filterPanel; }
  void OpenList() {
    ASSERT_NE(Start(), nullptr);
    SelectPage(10);
  }
  // A tap on a row's swatch or bitmap plays `step` in the dialog it opens,
  // which is known by `marker`.
  void TapRow(Row row, bool onBitmap, int marker, Step step) {
    HWND list = List().Window(L::kList);
    RECT client;
    GetClientRect(list, &client);
    POINT at = {onBitmap ? client.right - ScaleX(30) : ScaleX(10), ScaleY(kRowHeight) * row + ScaleY(kRowHeight / 2)};
    Then(marker, std::move(step));
    PlaySteps([&] { Tap(list, at); });
  }
  // The chooser's rows as it lists them: the product's icon sets (when the
  // prefix has them) come before the test's own folder.
  int IconRow(const std::u16string& name) {
    auto paths = ScanIconFolders(files(), IconFolders(registry(), Settings().InstallFolder.View(), kIcons));
    auto found = std::find(paths.begin(), paths.end(), std::u16string(kIcons) + u"\\" + name);
    return found == paths.end() ? -1 : int(found - paths.begin());
  }
  void PickIconRow(Row category, int iconRow, int button) {
    TapRow(category, true, IDC_ICON_CHOOSE, [=](HWND dialog) {
      HWND icons = FindWindowExW(dialog, nullptr, L"ListIconView", nullptr);
      ASSERT_NE(icons, nullptr);
      if (iconRow >= 0) Tap(icons, {ScaleX(40), ScaleY(30) * iconRow + ScaleY(15)});
      if (button == IDOK) TapMenuBar(dialog, IDOK);
      else TapControl(dialog, button);
    });
  }
  void Press(HWND control, int code = BN_CLICKED) {
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code), LPARAM(control));
    Pump();
  }
  void ChooseFilter(int filter) {
    ComboSelect(Panel().Window(F::kFilterChoice), filter);
    Press(Panel().Window(F::kFilterChoice), CBN_SELCHANGE);
  }
  StoredValue Category(const std::u16string& name) { return Stored(kCategoriesPath, name); }
};

// Rows are found by where they were painted, so each tap edits its own
// category, also between two names equal but for case; colours reach the
// registry only at Done, and no colour deletes the value.
TEST_F(CategoryPagesTest, ColoursChosenAndClearedAreSavedAtDone) {
  Put(kCategoriesPath, u"CatColor.Zeta", 0x123456);
  OpenList();
  const auto& entries = Categories().categories.entries;
  ASSERT_EQ(entries.size(), 5u);
  for (int row = 0; row < 5; ++row) EXPECT_EQ(entries[row].name.View(), kNames[row]) << row;
  EXPECT_FALSE(entries[kAlpha].bitmap) << "a category without a file is listed without a bitmap";
  EXPECT_TRUE(entries[kBusiness].bitmap);

  auto pick = [](int red) {
    return [red](HWND dialog) {
      TypeAndLeave(dialog, IDC_RED_VALUE, std::to_wstring(red));
      TypeAndLeave(dialog, IDC_GREEN_VALUE, L"0");
      TypeAndLeave(dialog, IDC_BLUE_VALUE, L"0");
      TapMenuBar(dialog, IDOK);
    };
  };
  TapRow(kBusiness, false, IDC_RED_SLIDER, pick(200));
  TapRow(kAlphaLower, false, IDC_RED_SLIDER, pick(7));
  TapRow(kZeta, false, IDC_RED_SLIDER, [](HWND dialog) {
    TapMenuBar(dialog, IDM_NO_COLOUR);
    TapMenuBar(dialog, IDOK);
  });
  TapRow(kCyrillic, false, IDC_RED_SLIDER, [](HWND dialog) { TapMenuBar(dialog, IDM_CANCEL); });
  EXPECT_EQ(entries[kAlpha].color, kNoColour);
  EXPECT_EQ(entries[kAlphaLower].color, RGB(7, 0, 0));
  EXPECT_EQ(Category(u"CatColor.Zeta").dword, 0x123456u) << "nothing written before Done";
  EXPECT_FALSE(Category(u"CatColor.Business").present);

  Command(IDOK);
  EXPECT_EQ(Category(u"CatColor.Business").dword, RGB(200, 0, 0));
  EXPECT_FALSE(Category(u"CatColor.Zeta").present) << "no colour deletes the value";
  EXPECT_FALSE(Category(u"CatColor.\u041f\u0440\u0438\u0432\u0435\u0442").present) << "a cancelled picker changes nothing";
}

// The chooser offers the .bmp files of the folder and its sub-folder. The
// category's own file chosen again stays untouched; another is copied over
// it; none deletes it; OK alone changes nothing.
TEST_F(CategoryPagesTest, IconChooserCopiesDeletesOrLeavesTheCategoryFile) {
  OpenList();
  const std::vector<std::uint8_t> business = Read(u"Business.bmp"), fresh = Read(u"Sub\\new.bmp");
  const FILETIME before = Written(u"Business.bmp");
  Sleep(20);
  ASSERT_GE(IconRow(u"Business.bmp"), 0);
  PickIconRow(kBusiness, IconRow(u"Business.bmp"), IDC_ICON_CHOOSE);
  FILETIME after = Written(u"Business.bmp");
  EXPECT_EQ(Read(u"Business.bmp"), business);
  EXPECT_EQ(CompareFileTime(&before, &after), 0) << "the same file chosen is not written again";

  ASSERT_GE(IconRow(u"Sub\\new.bmp"), 0);
  PickIconRow(kAlpha, IconRow(u"Sub\\new.bmp"), IDC_ICON_CHOOSE);
  EXPECT_EQ(Read(u"Alpha.bmp"), fresh) << "another file is copied under the category's name";
  EXPECT_TRUE(Categories().categories.entries[kAlpha].bitmap);

  PickIconRow(kZeta, -1, IDC_ICON_NONE);
  EXPECT_FALSE(files().Exists(std::u16string(kIcons) + u"\\Zeta.bmp"));
  EXPECT_FALSE(Categories().categories.entries[kZeta].bitmap);

  PickIconRow(kCyrillic, IconRow(u"Zeta.bmp"), IDOK);
  EXPECT_FALSE(Categories().categories.entries[kCyrillic].bitmap) << "OK alone changes nothing";
}

// The folder button opens the folder chooser where the folder is; Up and
// Done choose the parent; clear empties it again, and Done deletes the value.
TEST_F(CategoryPagesTest, IconFolderChosenThenCleared) {
  PutText(kCategoriesPath, u"AdditionalIconsFolder", std::u16string(kIcons) + u"\\Sub");
  OpenList();
  HWND edit = List().Window(L::kIconFolder);
  EXPECT_EQ(GetText(edit), std::u16string(kIcons) + u"\\Sub");
  Then(IDC_CHOOSER_LIST, [](HWND dialog) {
    TapControl(dialog, IDC_CHOOSER_UP);
    TapMenuBar(dialog, IDOK);
  });
  PlaySteps([&] { Press(List().Window(L::kChooseFolder)); });
  EXPECT_EQ(GetText(edit), kIcons);
  EXPECT_EQ(Settings().AdditionalIconsFolder.View(), kIcons);

  Press(List().Window(L::kClearFolder));
  EXPECT_EQ(GetText(edit), u"");
  Command(IDOK);
  EXPECT_FALSE(Category(u"AdditionalIconsFolder").present);
}

// A filter renamed in Cyrillic and given a category, then another filter
// chosen (which stores the first): nothing is written until Done; then the
// file holds the title in UTF-16 and the category's mask bit 2.
TEST_F(CategoryPagesTest, FilterEditsAreWrittenAtDone) {
  ASSERT_NE(Start(), nullptr);
  SelectPage(11);
  ChooseFilter(2);
  const std::u16string title = u"\u0414\u043e\u043c";
  SetText(Panel().Window(F::kTitle), title);
  ComboSelect(Panel().Window(F::kSensitivity), 2);
  TapTab(Panel().Window(F::kTabs), F::kCategoriesTab);
  EXPECT_TRUE(IsWindowVisible(Panel().Window(F::kMembers)));
  EXPECT_FALSE(IsWindowVisible(Panel().Window(F::kTitle)));
  ListViewSetChecked(Panel().Window(F::kMembers), kBusiness, true);
  ChooseFilter(0);
  EXPECT_EQ(ComboText(Panel().Window(F::kFilterChoice), 2), u"3: " + title);
  EXPECT_FALSE(ListViewChecked(Panel().Window(F::kMembers), kBusiness)) << "filter 1 shows its own members";
  EXPECT_FALSE(files().Exists(kFiltersFile));
  EXPECT_FALSE(Category(u"CatFilter.Business").present);

  Command(IDOK);
  EXPECT_EQ(Category(u"CatFilter.Business").dword, 1u << 2);
  EXPECT_FALSE(Category(u"CatFilter.Alpha").present);
  std::vector<std::uint8_t> bytes;
  ASSERT_TRUE(files().ReadAll(kFiltersFile, bytes));
  ASSERT_EQ(bytes.size() % 2, 0u);
  std::u16string text(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) text[i] = char16_t(bytes[2 * i] | bytes[2 * i + 1] << 8);
  EXPECT_NE(text.find(u"[FILTER2]\r\n\"Title\"=\"" + title + u"\"\r\n\"Sensitivity\"=dword:2\r\n"), std::u16string::npos)
      << Show(text.substr(0, 200));
  EXPECT_NE(text.find(u"[FILTER31]\r\n\"Title\"=\"Filter 32\""), std::u16string::npos);
}

TEST_F(CategoryPagesTest, CancelAfterEditsWritesNothing) {
  OpenList();
  const std::string before = RegistrySnapshot();
  TapRow(kBusiness, false, IDC_RED_SLIDER, [](HWND dialog) {
    TypeAndLeave(dialog, IDC_RED_VALUE, L"90");
    TapMenuBar(dialog, IDOK);
  });
  Press(List().Window(L::kClearFolder));
  SelectPage(11);
  SetText(Panel().Window(F::kTitle), u"Renamed");
  ListViewSetChecked(Panel().Window(F::kMembers), kZeta, true);
  answerer_.AnswerYesNo(IDYES);
  Command(IDM_CANCEL);
  ASSERT_EQ(Window(), nullptr);
  EXPECT_EQ(RegistrySnapshot(), before);
  EXPECT_FALSE(files().Exists(kFiltersFile));
}

// Both slots, the panel's second tab and the chooser at each screen, in
// English and in German: the layout check, and screenshots to look at.
TEST_F(CategoryPagesTest, SlotsAndChooserFitEveryScreenInBothLanguages) {
  CheckEveryScreen(L"categories", 4, [] {}, [&](int shot) {
    if (shot == 0) SelectPage(10);
    if (shot == 1) SelectPage(11);
    if (shot == 2) TapTab(Panel().Window(F::kTabs), F::kCategoriesTab);
    if (shot != 3) return;
    SelectPage(10);
    TapRow(kBusiness, true, IDC_ICON_CHOOSE, [&](HWND dialog) {
      for (const std::string& fault : CheckLayout(dialog)) ADD_FAILURE() << "chooser: " << fault;
      wchar_t screen[16] = {};
      GetEnvironmentVariableW(L"TIDEWELL_SCREEN", screen, 16);
      SaveScreenshot(L"icon-chooser-" + std::wstring(screen), dialog);
      TapMenuBar(dialog, IDOK);
    });
  });
}

}  // namespace
}  // namespace tw::test
