// The category list from the categories database and its attributes.
#include "data/categories.h"

#include "tests/support/make_bitmap.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

constexpr std::uint32_t kName = PropertyId(0x4001, kCeString);
constexpr std::uint32_t kId = PropertyId(0x4002, kCeI2);

DatabaseRecord Category(std::u16string_view name, std::int32_t id) {
  return {{kName, 0, std::u16string(name)}, {kId, id, {}}};
}

class CategoriesTest : public PlatformTest {
 protected:
  void TearDown() override {
    data.categories.Clear();  // the bitmaps go back before the platform closes
    PlatformTest::TearDown();
  }
  void Load(const std::vector<DatabaseRecord>& records) {
    WriteDatabase(kCategoriesDatabase, records);
    LoadCategories(data, {registry(), locale(), files(), database(), bitmaps()}, Folder() + u"\\Icons", Folder());
  }
  std::vector<std::u16string> Names() {
    std::vector<std::u16string> names;
    for (const CategoryEntry& entry : data.categories.entries) names.push_back(entry.name.Str());
    return names;
  }

  CategoryData data;
};

// The text form stands in for the device's database under Wine.
TEST(DatabaseTextTest, ParsesRecordsSkippingWhatIsNoProperty) {
  auto records = ParseDatabaseText(
      "# comment\r\n\n4001001F=Business\t40020002=3\r\n"
      "40020003=70000\tnot a property\t4001001F=Tab\tname\n4001001f=x");
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0][0].text, u"Business");
  for (int r : {0, 2}) EXPECT_EQ(records[r][0].id, kName) << "hex digits in either case";
  ASSERT_EQ(records[1].size(), 2u) << "the malformed property is dropped";
  EXPECT_EQ(records[1][1].text, u"Tab") << "the value runs to the next tab";
  EXPECT_EQ(ParseDatabaseText(FormatDatabaseText(records))[1][0].number, 70000);
}

TEST_F(CategoriesTest, KeepsRecordsWithANameAndIdSortedIgnoringCase) {
  Load({Category(u"beta", 1), Category(u"Alpha", 2), Category(u"", 3), Category(u"alpha", 4),
        Category(u"MinusOne", -1), Category(u"Wrapped", 65535), Category(u"ALPHA", 5),
        {{kName, 0, u"NoId"}},
        {{kName, 0, u"WideId"}, {PropertyId(0x4002, kCeI4), 5, {}}},
        {{PropertyId(0x4001, kCeI4), 7, {}}, {kId, 7, {}}}});
  EXPECT_EQ(Names(), (std::vector<std::u16string>{u"Alpha", u"alpha", u"ALPHA", u"beta"}))
      << "equal names keep the database order; 65535 as a 16-bit id is -1 and skipped too";
  EXPECT_EQ(data.categories.entries[3].id, 1);
}

TEST_F(CategoriesTest, MissingDatabaseGivesAnEmptyListAndDefaultFilters) {
  LoadCategories(data, {registry(), locale(), files(), database(), bitmaps()}, Folder(), Folder());
  EXPECT_TRUE(data.categories.entries.empty());
  EXPECT_EQ(data.filters.entries.size(), 32u);
}

TEST_F(CategoriesTest, LoadsAndSavesBitmapsColoursAndMasks) {
  ASSERT_TRUE(files().MakeDirectory(Folder() + u"\\Icons"));
  auto bitmap = MakeBitmap(24, 1, {{255, 0, 0}});
  ASSERT_TRUE(files().WriteAll(Folder() + u"\\Icons\\Work.bmp", bitmap.data(), bitmap.size()));
  ASSERT_TRUE(files().WriteAll(Folder() + u"\\Icons\\Дом.bmp", bitmap.data(), bitmap.size()));
  Put(kCategoriesKey.path, u"CatColor.Work", 0x123456);
  Put(kCategoriesKey.path, u"CatFilter.Work", 5);
  Put(kCategoriesKey.path, u"CatColor.home", 7);
  PutText(kCategoriesKey.path, u"CatFilter.Home", u"1");
  Load({Category(u"Work", 1), Category(u"Дом", 3), Category(u"Home", 2)});
  CategoryEntry& home = data.categories.entries[0];
  CategoryEntry& work = data.categories.entries[1];
  EXPECT_TRUE(work.bitmap);
  EXPECT_TRUE(data.categories.entries[2].bitmap) << "an icon named in another script";
  EXPECT_EQ(work.color, 0x123456u);
  EXPECT_EQ(work.filterMask, 5u);
  EXPECT_FALSE(home.bitmap) << "no file, no bitmap, still listed";
  EXPECT_EQ(home.color, 7u) << "value names ignore case, as registry names do";
  EXPECT_EQ(home.filterMask, 0u) << "four bytes of text are no mask";

  home.color = kNoCategoryColor;
  work.color = 0xFFFFFFFE;
  work.filterMask = 0x80000000;
  SaveCategoryAttributes(data.categories, registry());
  EXPECT_EQ(ValueNames(registry(), kCurrentUser, kCategoriesKey.path),
            (std::vector<std::u16string>{u"CatColor.Work", u"CatFilter.Work"}));
  EXPECT_EQ(Stored(kCategoriesKey.path, u"CatFilter.Work").dword, 0x80000000u);
}

}  // namespace
}  // namespace tw::test
