// Schemes, icon sets, the language and skin choices and hosted plug-in tabs.
#include <set>

#include "data/choice_lists.h"
#include "data/hosted_tabs.h"
#include "data/icon_sets.h"
#include "data/schemes.h"
#include "platform/memory/memory_library_loader.h"
#include "settings/schema.h"
#include "tests/support/make_bitmap.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

const std::u16string_view kColors = kColorsKey.path, kFonts = kFontsKey.path;

class DataFilesTest : public PlatformTest {
 protected:
  void TearDown() override {
    data.categories.Clear();  // the bitmaps go back before the platform closes
    PlatformTest::TearDown();
  }
  // Files and folders below the test folder; a name ending in "\" is a folder.
  void Make(std::initializer_list<std::u16string_view> paths, std::string_view text = "x") {
    for (auto path : paths) {
      std::u16string full = Folder() + std::u16string(path);
      if (full.back() == u'\\') ASSERT_TRUE(files().MakeDirectory(full.substr(0, full.size() - 1))) << Show(full);
      else ASSERT_TRUE(files().WriteAll(full, text.data(), text.size())) << Show(full);
    }
  }
  std::string Contents(std::u16string_view path) {
    std::vector<std::uint8_t> bytes;
    files().ReadAll(Folder() + std::u16string(path), bytes);
    return std::string(bytes.begin(), bytes.end());
  }
  CategoryEntry& AddCategory(std::u16string_view name, std::uint32_t color = kNoCategoryColor) {
    CategoryEntry& entry = data.categories.entries.emplace_back();
    entry.name.Assign(name);
    entry.color = color;
    return entry;
  }
  MessagePair Save(std::u16string_view name) {
    return SaveScheme(registry(), files(), data.categories, Folder(), name);
  }
  MessagePair Load(std::u16string_view name) { return LoadScheme(registry(), files(), data, Folder(), name); }

  CategoryData data;
};

// Naming, refusing an existing name and deleting are the Colours page's tests.
TEST_F(DataFilesTest, SchemesHoldColoursFontsAndCategoryColours) {
  Put(kColors, u"HighlightBgClr", 255);
  Put(kFonts, u"FontGenerallfHeight", 12);
  Put(kProductKey, u"OnClick", 1);
  AddCategory(u"Work", 5);
  EXPECT_EQ(Save(u"Dark"), kSchemeSaved);
  EXPECT_EQ(Contents(u"\\Schemes\\Dark.scm"),
            "\r\n[Software\\Orvex\\Tidewell\\Colors]\r\n\"HighlightBgClr\"=dword:255\r\n"
            "\r\n[Software\\Orvex\\Tidewell\\Fonts]\r\n\"FontGenerallfHeight\"=dword:12\r\n"
            "\r\n[::Categories::]\r\n\"Category\"=\"Work\"\r\n\"FiltersFlag\"=dword:0\r\n\"Color\"=dword:5\r\n");

  data.categories.entries[0].color = 9;
  EXPECT_EQ(Load(u"Dark.scm"), kNoMessage);
  EXPECT_EQ(data.categories.entries[0].color, 5u);
  data.categories.entries[0].name.Assign(u"Office");
  data.categories.entries[0].color = 9;
  EXPECT_EQ(Load(u"Dark.scm"), kNoMessage);
  EXPECT_EQ(data.categories.entries[0].color, 9u) << "a renamed category keeps its colour";

  EXPECT_EQ(Load(u"Missing.scm"), kSchemeCannotOpen);
  EXPECT_TRUE(KeyExists(registry(), kCurrentUser, kColors)) << "untouched";
  Make({u"\\Schemes\\Broken.scm"}, "\r\n[Software\\Orvex\\Tidewell\\Fonts]\r\n\"A\"=dword:1\r\n\r\n");
  EXPECT_EQ(Load(u"Broken.scm"), kSchemeLoadFailed);
  EXPECT_FALSE(KeyExists(registry(), kCurrentUser, kColors)) << "the cleared keys stay cleared";
  EXPECT_EQ(Stored(kFonts, u"A").dword, 1u) << "what came before the failure stays";
}

TEST_F(DataFilesTest, IconFoldersComeInTheirFixedOrderAndAreScannedIgnoringCase) {
  std::u16string iconSet = u"Software\\Orvex\\Tidewell\\IconSet";
  PutText(iconSet, u"InstallPath12", u"\\Twelve");
  PutText(iconSet, u"InstallPath24", u"\\TwentyFour");
  PutText(iconSet, u"InstallPathBlank", u"");
  EXPECT_EQ(IconFolders(registry(), u"\\Inst", u"\\More"),
            (std::vector<std::u16string>{u"\\Inst\\Icons\\", u"\\More\\", u"\\TwentyFour\\", u"\\Twelve\\"}));
  EXPECT_EQ(IconFolders(registry(), u"\\Inst", u"").size(), 3u);

  Make({u"\\A\\", u"\\A\\sub\\", u"\\A\\sub\\deeper\\", u"\\B\\", u"\\B\\x.bmp\\", u"\\A\\Zeta.BMP", u"\\A\\alpha.bmp",
        u"\\A\\notes.txt", u"\\A\\sub\\mid.bmp", u"\\A\\sub\\deeper\\low.bmp", u"\\B\\alpha.bmp"});
  std::u16string a = Folder() + u"\\A\\", b = Folder() + u"\\B\\";
  EXPECT_EQ(ScanIconFolders(files(), {b, a, Folder() + u"\\Missing\\"}),
            (std::vector<std::u16string>{a + u"alpha.bmp", a + u"sub\\deeper\\low.bmp", a + u"sub\\mid.bmp",
                                         a + u"Zeta.BMP", b + u"alpha.bmp"}));
  EXPECT_EQ(ScanIconFolders(files(), {a, a}).size(), 8u) << "a folder named twice lists its files twice";
}

TEST_F(DataFilesTest, ChoosingAnIconCopiesItUnderTheCategorysName) {
  auto bitmap = MakeBitmap(24, 1, {{255, 0, 0}});
  std::string pixels(bitmap.begin(), bitmap.end());
  Make({u"\\Icons\\", u"\\Set\\"});
  Make({u"\\Set\\star.bmp"}, pixels);
  Make({u"\\Icons\\Work.bmp"}, pixels + "old");
  CategoryEntry& work = AddCategory(u"Work");
  std::u16string icons = Folder() + u"\\Icons", own = icons + u"\\Work.bmp";

  IconChoice keep(icons, work);
  EXPECT_EQ(keep.Chosen(), own);
  keep.Choose(own, bitmaps());
  keep.Finish(files());
  EXPECT_EQ(Contents(u"\\Icons\\Work.bmp"), pixels + "old") << "choosing the category's own file changes nothing";

  IconChoice star(icons, work);
  star.Choose(Folder() + u"\\Set\\star.bmp", bitmaps());
  EXPECT_TRUE(work.bitmap);
  star.Finish(files());
  EXPECT_EQ(Contents(u"\\Icons\\Work.bmp"), pixels);

  IconChoice none(icons, work);
  none.ChooseNone();
  EXPECT_FALSE(work.bitmap);
  none.Finish(files());
  EXPECT_FALSE(files().Exists(own));
  EXPECT_TRUE(files().Exists(Folder() + u"\\Set\\star.bmp"));

  IconChoice lost(Folder() + u"\\NoSuchFolder", work);
  lost.Choose(Folder() + u"\\Set\\star.bmp", bitmaps());
  lost.Finish(files());
  EXPECT_FALSE(work.bitmap) << "a failed copy leaves the category without a bitmap";
}

TEST_F(DataFilesTest, LanguageSelectionCountsLibrariesWithoutAName) {
  Make({u"\\LangRes\\", u"\\LangRes\\a.dll", u"\\LangRes\\b.dll", u"\\LangRes\\c.dll", u"\\LangRes\\readme.txt"});
  std::u16string folder = Folder() + u"\\LangRes\\";
  std::vector<std::u16string> paths;
  for (const DirectoryEntry& file : files().List(Folder() + u"\\LangRes", u"*.dll"))
    paths.push_back(folder + file.name);
  ASSERT_EQ(paths.size(), 3u);
  // Whatever order the file system gives, the nameless library comes first.
  MemoryLibraryLoader loader;
  loader.libraries[paths[0]] = {{1, u"no name"}};
  loader.libraries[paths[1]] = {{kLanguageNameText, u"Deutsch"}};
  loader.libraries[paths[2]] = {{kLanguageNameText, u"English"}};

  LanguageChoices choices = ListLanguages(files(), loader, Folder(), paths[1]);
  ASSERT_EQ(choices.list.entries.size(), 2u);
  EXPECT_EQ(choices.list.entries[0].text, u"Deutsch");
  EXPECT_EQ(choices.list.entries[0].itemData, 1);
  EXPECT_EQ(choices.paths[2], paths[2]);
  EXPECT_EQ(choices.list.selected, 1) << "position 1 selects the second entry, not the library at 1";
  EXPECT_EQ(ListLanguages(files(), loader, Folder(), paths[2]).list.selected, -1) << "position 2 is past the entries";
  paths[1].back() = u'L';
  EXPECT_EQ(ListLanguages(files(), loader, Folder(), paths[1]).list.selected, 0) << "no match in case: the first";
}

// Hosted plug-in tabs

class HostedTabsTest : public PlatformTest {
 protected:
  void TearDown() override {
    for (auto name : {u"TwTest Weather", u"TwTest Date", u"Tidewell"}) registry().DeleteTree(kLocalMachine, Item(name));
    PlatformTest::TearDown();
  }
  static std::u16string Item(std::u16string_view name) {
    return std::u16string(kTodayItemsKey) + u"\\" + std::u16string(name);
  }
  void AddItem(std::u16string_view name, std::uint32_t type) {
    WriteDword(registry(), kLocalMachine, Item(name), u"Type", type);
    WriteDword(registry(), kLocalMachine, Item(name), u"Enabled", 1);
    WriteText(registry(), kLocalMachine, Item(name), u"DLL", u"\\Windows\\" + std::u16string(name) + u".dll");
  }
};

TEST_F(HostedTabsTest, OffersPluginsAndAddsAndRemovesThemAsTabs) {
  AddItem(u"TwTest Weather", 4);
  AddItem(u"TwTest Date", 2);
  AddItem(u"Tidewell", 4);
  std::set<std::u16string> offered;
  for (const PluginChoice& plugin : ListTodayPlugins(registry())) offered.insert(plugin.name);
  EXPECT_TRUE(offered.contains(u"TwTest Weather"));
  EXPECT_FALSE(offered.contains(u"TwTest Date")) << "not a library item";
  EXPECT_FALSE(offered.contains(u"Tidewell")) << "this product";

  SettingsStore record{};
  record.TasksTabOrder = 2, record.SEventsTabOrder = 5, record.NotesTabOrder = 3, record.MailTabOrder = 4;
  EXPECT_TRUE(IsPluginEnabled(registry(), u"TwTest Weather"));
  DisablePlugin(registry(), u"TwTest Weather");
  EXPECT_FALSE(IsPluginEnabled(registry(), u"TwTest Weather"));
  EXPECT_EQ(AddHostedTab(record, registry(), u"TwTest Weather"), kNoMessage);
  ASSERT_EQ(record.tabs.size(), 1u);
  EXPECT_EQ(record.tabs[0].library, u"\\Windows\\TwTest Weather.dll");
  EXPECT_EQ(record.tabs[0].order, 6) << "after every tab";
  EXPECT_EQ(record.tabs[0].dynamic, 1);
  EXPECT_EQ(record.tabs[0].enabled, 1);
  EXPECT_EQ(AddHostedTab(record, registry(), u"TwTest Weather"), kTabExists);

  TabEntry& builtIn = record.tabs.emplace_back();
  builtIn.name.Assign(u"Tasks");
  builtIn.dynamic = 0;
  EXPECT_FALSE(RemoveHostedTab(record, u"Tasks")) << "only hosted tabs can be removed";
  EXPECT_TRUE(RemoveHostedTab(record, u"TwTest Weather"));
  EXPECT_EQ(record.tabs.size(), 1u);
  EXPECT_FALSE(IsPluginEnabled(registry(), u"TwTest Weather"));
  WriteText(registry(), kLocalMachine, Item(u"TwTest Date"), u"DLL", std::u16string(258, u'd'));
  EXPECT_EQ(AddHostedTab(record, registry(), u"TwTest Date"), kNoMessage);
  EXPECT_EQ(record.tabs.back().library.View(), std::u16string(255, u'd')) << "the tab's 256-character field";
  EXPECT_EQ(ListFontFaces({u"Tahoma", u"Tahoma"}, u"Tahoma").selected, 0) << "the first of a repeated face";
}

}  // namespace
}  // namespace tw::test
