#include "data/folder_browser.h"
#include "platform/folder_listing.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

// Walking down, up and across both modes, and refusing a path too long while
// walking, are the chooser's own tests; these are the starts it is handed.
class FolderBrowserTest : public PlatformTest {};

TEST_F(FolderBrowserTest, StartsInTheDeepestFolderOnTheWay) {
  ASSERT_TRUE(files().MakeDirectory(Folder() + u"\\Notes"));
  ASSERT_TRUE(files().WriteAll(Folder() + u"\\Notes\\today.txt", "x", 1));
  const std::u16string notes = Folder() + u"\\Notes";
  const struct {
    std::u16string start, folder;
    std::size_t room = 256;
  } cases[] = {
      {notes, notes}, {Folder() + u"\\NOTES\\", notes}, {notes + u"\\today.txt", notes},
      {notes + u"\\gone\\deeper", notes}, {Folder() + u"\\.\\x\\..\\Notes", notes}, {u"", u"\\"},
      {u"\\missing", u"\\"}, {notes, Folder(), notes.size()},  // a start too long for the buffer ends above it
  };
  for (const auto& c : cases) {
    FolderBrowser browser(files(), locale(), BrowseFor::File, c.room);
    browser.Start(c.start);
    EXPECT_EQ(Show(browser.Folder()), Show(c.folder)) << Show(c.start) << " in " << c.room;
  }
  ASSERT_TRUE(files().WriteAll(Folder() + u"\\a.txt", "x", 1));
  for (BrowseFor target : {BrowseFor::Folder, BrowseFor::File}) {
    FolderBrowser browser(files(), locale(), target, 256);
    for (int again = 0; again < 2; ++again) browser.Start(Folder());  // a new listing replaces the old
    std::u16string listed;
    for (const BrowseEntry& entry : browser.Entries()) listed += entry.name + (entry.isFolder ? u"\\ " : u" ");
    EXPECT_EQ(Show(listed), target == BrowseFor::File ? "Notes\\ a.txt " : "Notes\\ ") << "folders first";
  }
}

// Icons are probed only where the listing cannot rule their files out.
TEST_F(FolderBrowserTest, AListingRulesOutOnlyAsciiNamesItLacks) {
  ASSERT_TRUE(files().WriteAll(Folder() + u"\\Sky.bmp", "x", 1));
  FolderListing listing(files(), Folder());
  EXPECT_TRUE(listing.MayHold(u"sky.BMP"));
  EXPECT_FALSE(listing.MayHold(u"Sea.bmp"));
}

}  // namespace
}  // namespace tw::test
