// What a folder lists: its entries with the attributes Wine gives them, and
// one listing that rules files out only where it can be sure.
#include <map>

#include "platform/folder_listing.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

class FolderListingTest : public PlatformTest {
 protected:
  void MakeFile(std::u16string_view name) {
    ASSERT_TRUE(files().WriteAll(Folder() + u"\\" + std::u16string(name), "x", 1)) << Show(name);
  }
};

TEST_F(FolderListingTest, EntriesCarryTheirAttributes) {
  MakeFile(u"file.txt");
  files().MakeDirectory(Folder() + u"\\Plain");
  files().MakeDirectory(Folder() + u"\\.dotted");
  std::map<std::u16string, std::uint32_t> found;
  for (const DirectoryEntry& entry : files().List(Folder(), u"*")) found[entry.name] = entry.attributes;
  EXPECT_EQ(found[u"file.txt"], kAttributeArchive);
  EXPECT_EQ(found[u"Plain"], kAttributeDirectory);
  EXPECT_EQ(found[u".dotted"], kAttributeDirectory | kAttributeHidden);
}

TEST_F(FolderListingTest, RulesOutAsciiNamesTheFolderLacks) {
  MakeFile(u"Reminder.TGA");
  MakeFile(u"birthday.bmp");
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
