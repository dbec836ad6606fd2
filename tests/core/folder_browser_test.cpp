// The chooser's walk through folders, against the test file system.
#include "data/folder_browser.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

class FolderBrowserTest : public PlatformTest {
 protected:
  // Names ending in a backslash are folders. Names in other scripts are
  // walked by the chooser's own test on the real file system.
  void Make(std::initializer_list<std::u16string_view> names) {
    for (std::u16string_view name : names) {
      std::u16string path = Folder() + u"\\" + std::u16string(name);
      if (name.ends_with(u'\\')) path.pop_back();
      ASSERT_TRUE(name.ends_with(u'\\') ? files().MakeDirectory(path) : files().WriteAll(path, "x", 1)) << Show(name);
    }
  }
  static std::vector<std::u16string> Rows(const FolderBrowser& browser) {
    std::vector<std::u16string> rows;
    for (const BrowseEntry& entry : browser.Entries()) rows.push_back(entry.name + (entry.isFolder ? u"\\" : u""));
    return rows;
  }
  // The entry of that name, as the user taps it.
  static const BrowseEntry& Entry(const FolderBrowser& browser, std::u16string_view name) {
    for (const BrowseEntry& entry : browser.Entries())
      if (entry.name == name) return entry;
    static const BrowseEntry none;
    ADD_FAILURE() << "no entry " << Show(name);
    return none;
  }
};

TEST_F(FolderBrowserTest, ListsFoldersFirstIgnoringCaseAndWalksDownAndUp) {
  Make({u"b.txt", u"A.txt", u"c.TXT", u"zeta\\", u"Alpha\\", u"beta\\", u"beta\\inner\\"});
  FolderBrowser browser(files(), locale(), BrowseFor::File, 256);
  browser.Start(Folder());
  EXPECT_EQ(browser.Folder(), Folder());
  EXPECT_EQ(Rows(browser), (std::vector<std::u16string>{u"Alpha\\", u"beta\\", u"zeta\\", u"A.txt", u"b.txt",
                                                        u"c.TXT"}));

  ASSERT_TRUE(browser.Open(browser.PathOf(Entry(browser, u"beta"))));
  EXPECT_EQ(browser.Folder(), Folder() + u"\\beta");
  EXPECT_EQ(Rows(browser), (std::vector<std::u16string>{u"inner\\"}));
  EXPECT_TRUE(browser.Up());
  EXPECT_TRUE(browser.Up());
  EXPECT_TRUE(browser.AtRoot());
  EXPECT_EQ(browser.Folder(), u"\\");
  EXPECT_EQ(browser.PathOf(Entry(browser, Folder().substr(1))), Folder()) << "one backslash below the root";
  EXPECT_FALSE(browser.Up()) << "nothing above the root";

  FolderBrowser folders(files(), locale(), BrowseFor::Folder, 256);
  folders.Start(Folder());
  EXPECT_EQ(Rows(folders), (std::vector<std::u16string>{u"Alpha\\", u"beta\\", u"zeta\\"})) << "no files";
}

TEST_F(FolderBrowserTest, StartsInTheDeepestFolderOnTheWay) {
  Make({u"Notes\\", u"Notes\\today.txt"});
  const std::u16string notes = Folder() + u"\\Notes";
  const struct { std::u16string start, folder; } cases[] = {
      {notes, notes}, {Folder() + u"\\NOTES\\", notes}, {notes + u"\\today.txt", notes},
      {notes + u"\\gone\\deeper", notes}, {Folder() + u"\\.\\x\\..\\Notes", notes}, {u"", u"\\"},
      {u"\\missing", u"\\"},
  };
  for (const auto& c : cases) {
    FolderBrowser browser(files(), locale(), BrowseFor::File, 256);
    browser.Start(c.start);
    EXPECT_EQ(Show(browser.Folder()), Show(c.folder)) << Show(c.start);
  }
}

TEST_F(FolderBrowserTest, NeverOpensAFolderWhosePathWouldNotFit) {
  Make({u"abcde\\", u"abcdef\\"});
  // Room for the folder, one backslash, five letters and the terminator.
  FolderBrowser browser(files(), locale(), BrowseFor::Folder, Folder().size() + 7);
  browser.Start(Folder());
  EXPECT_TRUE(browser.Open(browser.PathOf(Entry(browser, u"abcde"))));
  EXPECT_TRUE(browser.Up());
  std::u16string longer = browser.PathOf(Entry(browser, u"abcdef"));
  EXPECT_FALSE(browser.Fits(longer));
  EXPECT_FALSE(browser.Open(longer));
  EXPECT_EQ(browser.Folder(), Folder()) << "the folder shown stays";
  browser.Start(longer);
  EXPECT_EQ(browser.Folder(), Folder()) << "a start too long for the buffer ends above it";
}

}  // namespace
}  // namespace tw::test
