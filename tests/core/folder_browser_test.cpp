// The chooser's walk through folders, against the test file system.
#include "data/folder_browser.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

class FolderBrowserTest : public PlatformTest {
 protected:
  void Put(std::u16string_view name) {
    ASSERT_TRUE(files().WriteAll(Folder() + u"\\" + std::u16string(name), "x", 1)) << Show(name);
  }
  // Names in other scripts are walked by the chooser's own test on the real file system.
  void MakeFolder(std::u16string_view name) {
    ASSERT_TRUE(files().MakeDirectory(Folder() + u"\\" + std::u16string(name))) << Show(name);
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
  for (auto name : {u"b.txt", u"A.txt", u"c.TXT"}) Put(name);
  for (auto name : {u"zeta", u"Alpha", u"beta"}) MakeFolder(name);
  MakeFolder(u"beta\\inner");
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
  MakeFolder(u"Notes");
  Put(u"Notes\\today.txt");
  const struct {
    std::u16string start, folder;
  } cases[] = {
      {Folder() + u"\\Notes", Folder() + u"\\Notes"},
      {Folder() + u"\\NOTES\\", Folder() + u"\\Notes"},
      {Folder() + u"\\Notes\\today.txt", Folder() + u"\\Notes"},
      {Folder() + u"\\Notes\\gone\\deeper", Folder() + u"\\Notes"},
      {Folder() + u"\\.\\x\\..\\Notes", Folder() + u"\\Notes"},
      {u"", u"\\"},
      {u"\\missing", u"\\"},
  };
  for (const auto& c : cases) {
    FolderBrowser browser(files(), locale(), BrowseFor::File, 256);
    browser.Start(c.start);
    EXPECT_EQ(Show(browser.Folder()), Show(c.folder)) << Show(c.start);
  }
}

TEST_F(FolderBrowserTest, NeverOpensAFolderWhosePathWouldNotFit) {
  MakeFolder(u"abcde");
  MakeFolder(u"abcdef");
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
