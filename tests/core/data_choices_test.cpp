// Schemes, icon sets, the language and skin choices and hosted plug-in tabs.
#include "data/choice_lists.h"
#include "data/hosted_tabs.h"
#include "data/icon_sets.h"
#include "data/schemes.h"
#include "platform/memory/memory_library_loader.h"
#include "tests/support/test_platform.h"
#include "tests/support/tiny_bitmap.h"

namespace tw::test {
namespace {

class DataFilesTest : public PlatformTest {
 protected:
  void TearDown() override {
    data.categories.Clear();
    PlatformTest::TearDown();
  }

  void Touch(std::u16string_view path, std::string_view text = "x") {
    ASSERT_TRUE(files().WriteAll(path, text.data(), text.size())) << Show(path);
  }
  void MakeFolders(std::initializer_list<std::u16string_view> folders) {
    for (auto folder : folders) ASSERT_TRUE(files().MakeDirectory(Folder() + std::u16string(folder)));
  }
  std::string Contents(std::u16string_view path) {
    std::vector<std::uint8_t> bytes;
    files().ReadAll(path, bytes);
    return std::string(bytes.begin(), bytes.end());
  }
  CategoryEntry& AddCategory(std::u16string_view name, std::uint32_t color = kNoCategoryColor) {
    CategoryEntry entry;
    entry.name.Assign(name);
    entry.color = color;
    data.categories.entries.push_back(std::move(entry));
    return data.categories.entries.back();
  }

  CategoryData data;
};

// Schemes

constexpr std::u16string_view kColors = u"Software\\Orvex\\Tidewell\\Colors";
constexpr std::u16string_view kFonts = u"Software\\Orvex\\Tidewell\\Fonts";

TEST_F(DataFilesTest, SavingASchemeRefusesEmptyAndExistingNames) {
  WriteDword(registry(), kCurrentUser, kColors, u"HighlightBgClr", 255);
  WriteDword(registry(), kCurrentUser, kFonts, u"FontGenerallfHeight", 12);
  WriteDword(registry(), kCurrentUser, kProductKey, u"OnClick", 1);
  AddCategory(u"Work", 5);
  EXPECT_EQ(SaveScheme(registry(), files(), data.categories, Folder(), u""), kSchemeNameEmpty);
  EXPECT_FALSE(files().Exists(Folder() + u"\\Schemes"));
  EXPECT_EQ(SaveScheme(registry(), files(), data.categories, Folder(), u"Dark"), kSchemeSaved);
  std::string saved = Contents(Folder() + u"\\Schemes\\Dark.scm");
  EXPECT_EQ(saved,
            "\r\n[Software\\Orvex\\Tidewell\\Colors]\r\n\"HighlightBgClr\"=dword:255\r\n"
            "\r\n[Software\\Orvex\\Tidewell\\Fonts]\r\n\"FontGenerallfHeight\"=dword:12\r\n"
            "\r\n[::Categories::]\r\n\"Category\"=\"Work\"\r\n\"FiltersFlag\"=dword:0\r\n\"Color\"=dword:5\r\n");
  WriteDword(registry(), kCurrentUser, kColors, u"HighlightBgClr", 1);
  EXPECT_EQ(SaveScheme(registry(), files(), data.categories, Folder(), u"Dark"), kSchemeExists);
  EXPECT_EQ(Contents(Folder() + u"\\Schemes\\Dark.scm"), saved) << "never overwritten";
  EXPECT_EQ(ListSchemes(files(), Folder()), std::vector<std::u16string>{u"Dark.scm"});
}

TEST_F(DataFilesTest, LoadingASchemeClearsColoursAndFontsFirst) {
  WriteDword(registry(), kCurrentUser, kColors, u"HighlightBgClr", 255);
  AddCategory(u"Work", 5);
  ASSERT_EQ(SaveScheme(registry(), files(), data.categories, Folder(), u"Red"), kSchemeSaved);
  WriteDword(registry(), kCurrentUser, kColors, u"ShadowFontColor", 7);
  WriteDword(registry(), kCurrentUser, kFonts, u"FontGenerallfHeight", 12);
  data.categories.entries[0].color = 9;

  EXPECT_EQ(LoadScheme(registry(), files(), data, Folder(), u"Red.scm"), kNoMessage);
  EXPECT_EQ(ValueNames(registry(), kCurrentUser, kColors), std::vector<std::u16string>{u"HighlightBgClr"});
  EXPECT_TRUE(ValueNames(registry(), kCurrentUser, kFonts).empty());
  EXPECT_EQ(data.categories.entries[0].color, 5u);

  data.categories.entries[0].name.Assign(u"Office");
  data.categories.entries[0].color = 9;
  EXPECT_EQ(LoadScheme(registry(), files(), data, Folder(), u"Red.scm"), kNoMessage);
  EXPECT_EQ(data.categories.entries[0].color, 9u) << "a renamed category keeps its colour";
}

TEST_F(DataFilesTest, ASchemeThatCannotBeOpenedOrParsedIsReported) {
  WriteDword(registry(), kCurrentUser, kColors, u"HighlightBgClr", 255);
  EXPECT_EQ(LoadScheme(registry(), files(), data, Folder(), u"Missing.scm"), kSchemeCannotOpen);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kColors, u"HighlightBgClr").dword, 255u) << "untouched";
  MakeFolders({u"\\Schemes"});
  Touch(Folder() + u"\\Schemes\\Broken.scm", "\r\n[Software\\Orvex\\Tidewell\\Fonts]\r\n\"A\"=dword:1\r\n\r\n");
  EXPECT_EQ(LoadScheme(registry(), files(), data, Folder(), u"Broken.scm"), kSchemeLoadFailed);
  EXPECT_FALSE(KeyExists(registry(), kCurrentUser, kColors)) << "the cleared keys stay cleared";
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kFonts, u"A").dword, 1u) << "what came before the failure stays";
  EXPECT_TRUE(DeleteScheme(files(), Folder(), u"Broken.scm"));
  EXPECT_TRUE(ListSchemes(files(), Folder()).empty());
}

// Icon sets

TEST_F(DataFilesTest, IconFoldersComeInTheirFixedOrder) {
  std::u16string iconSet = u"Software\\Orvex\\Tidewell\\IconSet";
  WriteText(registry(), kCurrentUser, iconSet, u"InstallPath12", u"\\Twelve");
  WriteText(registry(), kCurrentUser, iconSet, u"InstallPath24", u"\\TwentyFour");
  WriteText(registry(), kCurrentUser, iconSet, u"InstallPathBlank", u"");
  EXPECT_EQ(IconFolders(registry(), u"\\Inst", u"\\More"),
            (std::vector<std::u16string>{u"\\Inst\\Icons\\", u"\\More\\", u"\\TwentyFour\\", u"\\Twelve\\"}));
  EXPECT_EQ(IconFolders(registry(), u"\\Inst", u"").size(), 3u);
}

TEST_F(DataFilesTest, ScanListsBitmapsOfSubfoldersByPathIgnoringCase) {
  MakeFolders({u"\\A", u"\\A\\sub", u"\\A\\sub\\deeper", u"\\B", u"\\B\\x.bmp"});
  for (auto file : {u"\\A\\Zeta.BMP", u"\\A\\alpha.bmp", u"\\A\\notes.txt", u"\\A\\sub\\mid.bmp",
                    u"\\A\\sub\\deeper\\low.bmp", u"\\B\\alpha.bmp"})
    Touch(Folder() + file);
  std::u16string a = Folder() + u"\\A\\", b = Folder() + u"\\B\\";
  EXPECT_EQ(ScanIconFolders(files(), {b, a, Folder() + u"\\Missing\\"}),
            (std::vector<std::u16string>{a + u"alpha.bmp", a + u"sub\\deeper\\low.bmp", a + u"sub\\mid.bmp",
                                         a + u"Zeta.BMP", b + u"alpha.bmp"}));
  EXPECT_EQ(ScanIconFolders(files(), {a, a}).size(), 8u) << "a folder named twice lists its files twice";
}

TEST_F(DataFilesTest, ChoosingAnIconCopiesItUnderTheCategorysName) {
  MakeFolders({u"\\Icons", u"\\Set"});
  auto bitmap = TinyBitmap();
  std::string pixels(bitmap.begin(), bitmap.end());
  Touch(Folder() + u"\\Set\\star.bmp", pixels);
  Touch(Folder() + u"\\Icons\\Work.bmp", pixels + "old");
  CategoryEntry& work = AddCategory(u"Work");
  std::u16string own = Folder() + u"\\Icons\\Work.bmp";

  IconChoice keep(Folder() + u"\\Icons", work);
  EXPECT_EQ(keep.Chosen(), own);
  keep.Choose(own, bitmaps());
  keep.Finish(files());
  EXPECT_EQ(Contents(own), pixels + "old") << "choosing the category's own file changes nothing";

  IconChoice star(Folder() + u"\\Icons", work);
  star.Choose(Folder() + u"\\Set\\star.bmp", bitmaps());
  EXPECT_TRUE(work.bitmap);
  star.Finish(files());
  EXPECT_EQ(Contents(own), pixels);

  IconChoice none(Folder() + u"\\Icons", work);
  none.ChooseNone();
  EXPECT_FALSE(work.bitmap);
  none.Finish(files());
  EXPECT_FALSE(files().Exists(own));
  EXPECT_TRUE(files().Exists(Folder() + u"\\Set\\star.bmp"));
}

// Language libraries and skins

TEST_F(DataFilesTest, LanguageSelectionCountsLibrariesWithoutAName) {
  MakeFolders({u"\\LangRes", u"\\Skins"});
  std::u16string folder = Folder() + u"\\LangRes\\";
  MemoryLibraryLoader loader;
  std::vector<std::u16string> names;
  for (const DirectoryEntry& file : files().List(Folder() + u"\\LangRes", u"*.dll")) names.push_back(file.name);
  ASSERT_TRUE(names.empty());
  for (auto name : {u"Nameless.dll", u"German.dll", u"English.dll"}) Touch(folder + name);
  Touch(folder + u"readme.txt");
  for (const DirectoryEntry& file : files().List(Folder() + u"\\LangRes", u"*.dll")) names.push_back(file.name);
  ASSERT_EQ(names.size(), 3u);
  // Whatever order the file system gives, the nameless library is made the first.
  loader.libraries[folder + names[1]] = {{kLanguageNameText, u"Deutsch"}};
  loader.libraries[folder + names[2]] = {{kLanguageNameText, u"English"}, {1, u"x"}};
  loader.libraries[folder + names[0]] = {{1, u"no name"}};

  LanguageChoices choices = ListLanguages(files(), loader, Folder(), folder + names[1]);
  ASSERT_EQ(choices.list.entries.size(), 2u);
  EXPECT_EQ(choices.list.entries[0].text, u"Deutsch");
  EXPECT_EQ(choices.list.entries[0].itemData, 1);
  EXPECT_EQ(choices.paths[2], folder + names[2]);
  EXPECT_EQ(choices.list.selected, 1) << "position 1 selects the second entry, not the library at 1";

  EXPECT_EQ(ListLanguages(files(), loader, Folder(), folder + names[2]).list.selected, -1)
      << "position 2 is past the two entries";
  std::u16string upper = folder + names[1];
  upper.back() = u'L';
  EXPECT_EQ(ListLanguages(files(), loader, Folder(), upper).list.selected, 0) << "no match in case: the first";
}

TEST_F(DataFilesTest, SkinsAreTheSkinFoldersOrDefault) {
  MakeFolders({u"\\Skins"});
  ChoiceList none = ListSkins(files(), Folder() + u"\\Skins", u"default");
  ASSERT_EQ(none.entries.size(), 1u);
  EXPECT_EQ(none.entries[0].text, u"Default");
  EXPECT_EQ(none.entries[0].itemData, 0);

  MakeFolders({u"\\Skins\\Ocean", u"\\Skins\\Plain"});
  Touch(Folder() + u"\\Skins\\notes.txt");
  ChoiceList skins = ListSkins(files(), Folder() + u"\\Skins", u"Plain");
  ASSERT_EQ(skins.entries.size(), 2u);
  EXPECT_EQ(skins.entries[skins.selected].text, u"Plain");
  EXPECT_EQ(skins.entries[1].itemData, 1);
}

// Hosted plug-in tabs

class HostedTabsTest : public PlatformTest {
 protected:
  void TearDown() override {
    for (auto name : kItems) registry().DeleteTree(kLocalMachine, Item(name));
    PlatformTest::TearDown();
  }
  static std::u16string Item(std::u16string_view name) { return std::u16string(kTodayItemsKey) + u"\\" + std::u16string(name); }
  void AddItem(std::u16string_view name, std::uint32_t type, std::uint32_t enabled) {
    WriteDword(registry(), kLocalMachine, Item(name), u"Type", type);
    WriteDword(registry(), kLocalMachine, Item(name), u"Enabled", enabled);
    WriteText(registry(), kLocalMachine, Item(name), u"DLL", std::u16string(u"\\Windows\\") + std::u16string(name) + u".dll");
  }
  static bool Listed(Registry& registry, std::u16string_view name) {
    for (const PluginChoice& plugin : ListTodayPlugins(registry))
      if (plugin.name == name) return true;
    return false;
  }

  static constexpr std::u16string_view kItems[] = {u"TwTest Weather", u"TwTest Date", u"Tidewell"};
  SettingsStore record{};
};

TEST_F(HostedTabsTest, OffersPluginLibrariesButNotThisProduct) {
  AddItem(u"TwTest Weather", 4, 1);
  AddItem(u"TwTest Date", 2, 1);
  AddItem(u"Tidewell", 4, 1);
  EXPECT_TRUE(Listed(registry(), u"TwTest Weather"));
  EXPECT_FALSE(Listed(registry(), u"TwTest Date"));
  EXPECT_FALSE(Listed(registry(), u"Tidewell"));
}

TEST_F(HostedTabsTest, AddingDisablesOnRequestAndRemovingLeavesItDisabled) {
  AddItem(u"TwTest Weather", 4, 1);
  record.TasksTabOrder = 2, record.SEventsTabOrder = 5, record.NotesTabOrder = 3, record.MailTabOrder = 4;
  EXPECT_TRUE(IsPluginEnabled(registry(), u"TwTest Weather"));
  DisablePlugin(registry(), u"TwTest Weather");
  EXPECT_FALSE(IsPluginEnabled(registry(), u"TwTest Weather"));
  EXPECT_EQ(ReadValue(registry(), kLocalMachine, Item(u"TwTest Weather"), u"Enabled").type, kRegDword);

  EXPECT_EQ(AddHostedTab(record, registry(), u"TwTest Weather"), kNoMessage);
  ASSERT_EQ(record.tabs.size(), 1u);
  const TabEntry& tab = record.tabs[0];
  EXPECT_EQ(tab.library, u"\\Windows\\TwTest Weather.dll");
  EXPECT_EQ(tab.order, 6) << "after every tab";
  EXPECT_EQ(tab.enabled, 1);
  EXPECT_EQ(tab.dynamic, 1);
  EXPECT_EQ(AddHostedTab(record, registry(), u"TwTest Weather"), kTabExists);

  TabEntry builtIn;
  builtIn.name.Assign(u"Tasks");
  builtIn.dynamic = 0;
  record.tabs.push_back(std::move(builtIn));
  EXPECT_FALSE(RemoveHostedTab(record, u"Tasks")) << "only hosted tabs can be removed";
  EXPECT_TRUE(RemoveHostedTab(record, u"TwTest Weather"));
  EXPECT_EQ(record.tabs.size(), 1u);
  EXPECT_FALSE(IsPluginEnabled(registry(), u"TwTest Weather"));
}

TEST(TabOrderTest, InsertGoesBeforeEqualOrdersExceptTheFirst) {
  std::vector<TabEntry> tabs;
  for (int order : {5, 3, 9, 5, 3}) {
    TabEntry entry;
    entry.order = order;
    entry.name.Assign(FormatText(u"%d-%d", {order, static_cast<int>(tabs.size())}));
    InsertTab(tabs, std::move(entry));
  }
  std::vector<std::u16string> names;
  for (const TabEntry& tab : tabs) names.push_back(tab.name.Str());
  EXPECT_EQ(names, (std::vector<std::u16string>{u"3-1", u"3-4", u"5-3", u"5-0", u"9-2"}));
}

}  // namespace
}  // namespace tw::test
