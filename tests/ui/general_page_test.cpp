// The General page: its table against the page's description, then the
// rows that behave differently driven as a user would: the retired tap
// action, typed heights, the language, skin and font lists.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "pages/general_page.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

constexpr int kGeneralSlot = 0, kDrawingTab = 2;
constexpr RowAt kTapRow{0, 1}, kHeightRow{0, 3}, kLanguageRow{0, 5}, kSkinRow{0, 6}, kFontRow{0, 10};
constexpr char16_t kSkins[] = u"\\twtest\\Skins";

class GeneralTest : public RowPageTest<GeneralPage, kGeneralSlot> {
 protected:
  std::vector<std::u16string> Entries() {
    std::vector<std::u16string> entries;
    for (int i = 0; i < ComboCount(EditorWindow(kDropDown)); ++i) entries.push_back(ComboText(EditorWindow(kDropDown), i));
    return entries;
  }
  std::u16string Shown() { return ComboText(EditorWindow(kDropDown), ComboSelection(EditorWindow(kDropDown))); }
  void Choose(RowAt row, const std::u16string& entry) {
    SelectRow(row);
    std::vector<std::u16string> entries = Entries();
    auto found = std::find(entries.begin(), entries.end(), entry);
    ASSERT_NE(found, entries.end()) << Show(entry);
    ComboSelect(EditorWindow(kDropDown), int(found - entries.begin()));
    Deselect();
  }
};

TEST(GeneralPage, TableIsAsDescribed) {
  const Described rows[] = {
      {0, 1, 40633, 40655, 40656, u"OnClick", 3, 31}, {0, 10, 40648, 40695, 40696, u"FontFaceToUse"},
      {0, 13, 40963, 40963, 40968, u"IndentItems"}, {1, 1, 0, 40652, 0, u"RemoveTabsBar"},
      {1, 4, 0, 40649, 0, u"FilterTtlAlign", 3, 40699}, {2, 3, 40645, 40683, 40684, u"UseShadowColor", 5, 40685},
      {2, 9, 40303, 40461, 40462, u"ClrDPadEnterAction", 3, 40463},
  };
  ExpectDescribed(GeneralTabs(), {{40240, 13}, {40962, 5}, {40247, 10}}, rows);
}

// A tap action of 3 is no longer offered: it shows as 2 and becomes 2.
TEST_F(GeneralTest, RetiredTapActionBecomesTheLast) {
  OpenPage();
  Settings().OnClick = 3;
  SelectRow(kTapRow);
  EXPECT_EQ(ComboSelection(EditorWindow(kDropDown)), 2);
  EXPECT_EQ(Settings().OnClick, 2);
}

// Typed heights are read in C's automatic base; text that is no number is 0.
TEST_F(GeneralTest, TypedHeightsKeepValuesOutsideTheList) {
  OpenPage();
  SelectRow(kHeightRow);
  HWND combo = EditorWindow(kNumberCombo);
  EXPECT_TRUE(IsWindowVisible(combo));
  EXPECT_EQ(ComboCount(combo), 27);
  EXPECT_EQ(GetText(combo), FormatText(u"%d", {Settings().dHeightLimit}));
  const struct {
    const char16_t* typed;
    std::int32_t stored;
  } cases[] = {{u"333", 333}, {u"017", 15}, {u"abc", 0}, {u"0x100", 256}};
  for (const auto& typed : cases) {
    SetText(combo, typed.typed);
    Deselect();
    EXPECT_EQ(Settings().dHeightLimit, typed.stored) << Show(typed.typed);
    SelectRow(kHeightRow);
  }
  EXPECT_EQ(GetText(combo), u"256") << "the stored value shown again";
  SelectRow({0, 4});
  EXPECT_EQ(ComboText(EditorWindow(kNumberCombo), 0), u"0") << "the other number row's own list";
  SetText(combo, u"300");
  Command(IDOK);  // the row still shown is stored, and only into its own setting
  EXPECT_EQ(Saved(&SettingsStore::dHeightLimit), 256);
  EXPECT_EQ(Saved(&SettingsStore::dHeightLimitLandscape), 300);
}

// The texts the two libraries word differently: English's and German's.
std::pair<std::set<std::wstring>, std::set<std::wstring>> TextsThatDiffer() {
  HMODULE english = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LangRes\\CPEngRc.dll");
  HMODULE german = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LangRes\\CPDeuRc.dll");
  std::pair<std::set<std::wstring>, std::set<std::wstring>> texts;
  for (unsigned id : kLanguageTexts) {
    wchar_t a[1024] = {}, b[1024] = {};
    LoadStringW(english, id, a, 1024);
    LoadStringW(german, id, b, 1024);
    if (lstrcmpW(a, b) == 0) continue;
    if (a[0] != 0) texts.first.insert(a);
    if (b[0] != 0) texts.second.insert(b);
  }
  FreeLibrary(english);
  FreeLibrary(german);
  return texts;
}

// What a page shows as text: its controls' own texts and its tabs' labels.
std::vector<std::wstring> ShownTexts(const SettingsPage& page) {
  std::vector<std::wstring> texts;
  for (HWND control : page.Controls()) {
    wchar_t text[1024] = {}, type[32] = {};
    if (GetWindowTextW(control, text, 1024) > 0) texts.push_back(text);
    GetClassNameW(control, type, 32);
    for (int tab = 0; lstrcmpiW(type, WC_TABCONTROLW) == 0 && tab < TabCount(control); ++tab) {
      TCITEMW item = {};
      item.mask = TCIF_TEXT, item.pszText = text, item.cchTextMax = 1024;
      if (SendMessageW(control, TCM_GETITEMW, tab, reinterpret_cast<LPARAM>(&item))) texts.push_back(text);
    }
  }
  return texts;
}

// A language and a skin chosen on the General page count from the next
// start, as on the device: the next start shows every page in German and
// draws with the skin's colours.
TEST_F(GeneralTest, ChosenLanguageAndSkinTakeEffectAtTheNextStart) {
  // The installed skins when the prefix has them (the run script installs
  // them), else two made here with the second skin's text colour.
  const std::u16string skins = u"\\Program Files\\Orvex\\Tidewell\\Skins";
  const bool made = !files().Exists(skins + u"\\Harbour\\skin.ini");
  if (made) {
    for (const char16_t* folder : {u"", u"\\default", u"\\Harbour"}) files().MakeDirectory(skins + folder);
    std::string ini = "\"txt_color\"=\"16,40,78\"\r\n";
    ASSERT_TRUE(files().WriteAll(skins + u"\\Harbour\\skin.ini", ini.data(), ini.size()));
  }
  OpenPage();
  SelectRow(kLanguageRow);
  std::vector<std::u16string> names = Entries();
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::u16string>{u"Deutsch", u"English"})) << "each library by its own name";
  EXPECT_EQ(Shown(), u"English");
  Choose(kLanguageRow, u"Deutsch");
  Choose(kSkinRow, u"Harbour");
  EXPECT_NE(Settings().skin.name.View(), u"Harbour") << "not before the next start";
  Command(IDOK);
  ASSERT_EQ(Window(), nullptr);
  EXPECT_EQ(Saved(&SettingsStore::SelectedLangResFile),
            std::u16string(Settings().InstallFolder.View()) + u"\\LangRes\\CPDeuRc.dll");

  ASSERT_NE(Start(), nullptr);
  EXPECT_EQ(Settings().skin.name.View(), u"Harbour");
  EXPECT_EQ(Settings().skin.textColor[0], RGB(16, 40, 78));
  EXPECT_EQ(Settings().skin.folder.View(), skins + u"\\Harbour") << "where the preview's pictures load from";
  const auto [english, german] = TextsThatDiffer();
  for (int slot = 0; slot < kPageCount; ++slot) {
    if (kPages[slot].make == nullptr) continue;
    SelectPage(slot);
    int inGerman = 0;
    for (const std::wstring& text : ShownTexts(*Shell().slots[slot])) {
      EXPECT_EQ(english.count(text), 0u) << "page " << slot << " still shows English: " << Show(AsU16(text.c_str()));
      inGerman += int(german.count(text));
    }
    EXPECT_TRUE(slot == kAboutPage || inGerman > 0) << "page " << slot << " shows no German text";
  }
  DestroyWindow(Window());
  Pump();
  if (made) RemoveTestFolder(u"C:" + skins);
}

// Only plain folders are skins: not files, not hidden or read-only folders;
// names match exactly.
TEST_F(GeneralTest, SkinRowOffersPlainFoldersOrDefault) {
  OpenPage();
  Settings().SkinsFolder.Assign(kSkins);
  ASSERT_TRUE(files().MakeDirectory(kSkins));
  const struct {
    const char16_t* name;
    DWORD attributes;
  } folders[] = {{u"Blue", 0}, {u"Plain", 0}, {u"Hidden", FILE_ATTRIBUTE_HIDDEN}, {u"Locked", FILE_ATTRIBUTE_READONLY}};
  std::vector<std::u16string> plain;
  for (const auto& folder : folders) {
    std::u16string path = std::u16string(kSkins) + u"\\" + folder.name;
    ASSERT_TRUE(files().MakeDirectory(path));
    if (folder.attributes != 0) SetFileAttributesW(AsWide(path.c_str()), folder.attributes);
    // Wine keeps no read-only mark on a folder where the host file system
    // cannot; such a folder is plain after all.
    if (GetFileAttributesW(AsWide(path.c_str())) == FILE_ATTRIBUTE_DIRECTORY) plain.push_back(folder.name);
  }
  EXPECT_EQ(std::count(plain.begin(), plain.end(), u"Hidden"), 0) << "the hidden mark held";
  files().Create(std::u16string(kSkins) + u"\\notes.txt", false);
  Settings().dSelectedSkin.Assign(u"Plain");
  SelectRow(kSkinRow);
  std::vector<std::u16string> skins = Entries();
  std::sort(skins.begin(), skins.end());
  std::sort(plain.begin(), plain.end());
  EXPECT_EQ(skins, plain);
  EXPECT_EQ(Shown(), u"Plain");
  Deselect();
  Settings().dSelectedSkin.Assign(u"plain");
  SelectRow(kSkinRow);
  EXPECT_EQ(ComboSelection(EditorWindow(kDropDown)), 0);
}

// The device's own faces; the face name is stored.
TEST_F(GeneralTest, FontRowOffersTheDeviceFaces) {
  OpenPage();
  SelectRow(kFontRow);
  HWND combo = EditorWindow(kDropDown);
  ASSERT_GT(ComboCount(combo), 1);
  std::u16string face = ComboText(combo, ComboCount(combo) - 1);
  ComboSelect(combo, ComboCount(combo) - 1);
  SelectTab(kDrawingTab);
  EXPECT_EQ(Settings().FontFaceToUse.View(), face);
}

TEST_F(GeneralTest, EveryTabFitsEachScreen) { CheckEveryTab(L"general", kGeneralTabCount); }

}  // namespace
}  // namespace tw::test
