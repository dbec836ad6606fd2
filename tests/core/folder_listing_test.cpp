// One listing of a folder rules files out only where it can be sure.
#include "platform/folder_listing.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

class FolderListingTest : public PlatformTest {
 protected:
  void Put(std::u16string_view name) {
    ASSERT_TRUE(files().WriteAll(Folder() + u"\\" + std::u16string(name), "x", 1)) << Show(name);
  }
};

TEST_F(FolderListingTest, RulesOutAsciiNamesTheFolderLacks) {
  Put(u"Reminder.TGA");
  Put(u"birthday.bmp");
  files().MakeDirectory(Folder() + u"\\note.tga");
  FolderListing listing(files(), Folder());
  EXPECT_TRUE(listing.MayHold(u"reminder.tga")) << "names compare without case";
  EXPECT_TRUE(listing.MayHold(u"BIRTHDAY.BMP"));
  EXPECT_TRUE(listing.MayHold(u"note.tga")) << "a folder of that name is left to the open to refuse";
  EXPECT_FALSE(listing.MayHold(u"reminder.bmp"));
  EXPECT_FALSE(listing.MayHold(u"birthday_high.bmp"));
  EXPECT_TRUE(listing.MayHold(u"Ärger.bmp")) << "other scripts are the file system's to compare";

  EXPECT_FALSE(FolderListing(files(), Folder() + u"\\missing").MayHold(u"reminder.tga"));
  EXPECT_FALSE(FolderListing(files(), u"").MayHold(u"reminder.tga")) << "no folder, no files";
}

TEST_F(FolderListingTest, ANameInAnotherScriptRulesNothingOut) {
  ASSERT_TRUE(files().WriteAll(Folder() + u"\\Ärger.bmp", "x", 1)) << "file names in another script";
  FolderListing listing(files(), Folder());
  EXPECT_TRUE(listing.MayHold(u"reminder.tga"));
  EXPECT_TRUE(listing.MayHold(u"ärger.bmp"));
}

}  // namespace
}  // namespace tw::test
