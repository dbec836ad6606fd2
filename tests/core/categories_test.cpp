// The category list from the categories database and its attributes.
#include "data/categories.h"

#include "tests/support/test_platform.h"
#include "tests/support/tiny_bitmap.h"

namespace tw::test {
namespace {

constexpr std::uint32_t kName = PropertyId(0x4001, kCeString);
constexpr std::uint32_t kId = PropertyId(0x4002, kCeI2);

DatabaseRecord Category(std::u16string_view name, std::int32_t id) {
  return {{kName, 0, std::u16string(name)}, {kId, id, {}}};
}

class CategoriesTest : public PlatformTest {
 protected:
  // The bitmaps go back to the platform before it closes.
  void TearDown() override {
    data.categories.Clear();
    PlatformTest::TearDown();
  }

  std::u16string IconsFolder() { return Folder() + u"\\Icons"; }

  void Load(const std::vector<DatabaseRecord>& records) {
    WriteDatabase(kCategoriesDatabase, records);
    LoadCategories(data, {registry(), locale(), files(), database(), bitmaps()}, IconsFolder(), Folder());
  }

  std::vector<std::u16string> Names() {
    std::vector<std::u16string> names;
    for (const CategoryEntry& entry : data.categories.entries) names.push_back(entry.name.Str());
    return names;
  }

  CategoryData data;
};

TEST(DatabaseTextTest, ParsesRecordsAndReportsPropertiesByIdentifier) {
  auto records = ParseDatabaseText(
      "# comment\r\n\n4001001F=Business\t40020002=3\r\n"
      "40020003=70000\tnot a property\t4001001F=Tab\tname\n4001001f=x");
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0][0].text, u"Business");
  EXPECT_EQ(records[0][1].number, 3);
  ASSERT_EQ(records[1].size(), 2u) << "the malformed property is dropped";
  EXPECT_EQ(records[1][1].text, u"Tab") << "the value runs to the next tab";

  auto cursor = MakeRecordCursor(records);
  ASSERT_TRUE(cursor->SeekToBeginning());
  const std::uint32_t asked[] = {kName, kId};
  std::vector<PropertyValue> values;
  ASSERT_TRUE(cursor->ReadRecord(asked, values));
  ASSERT_TRUE(cursor->ReadRecord(asked, values));
  EXPECT_TRUE(values[1].found);
  EXPECT_EQ(values[1].type, kCeI4) << "a property of another type is reported with its own type";
  EXPECT_EQ(values[1].number, 70000);
  ASSERT_TRUE(cursor->ReadRecord(asked, values));
  EXPECT_FALSE(values[1].found);
  EXPECT_FALSE(cursor->ReadRecord(asked, values));
  EXPECT_EQ(ParseDatabaseText(FormatDatabaseText(records))[1][0].number, 70000);
}

TEST_F(CategoriesTest, SkipsRecordsWithoutAUsableNameOrId) {
  Load({Category(u"Kept", 1), Category(u"", 2), Category(u"MinusOne", -1),
        {{kName, 0, u"NoId"}},
        {{kName, 0, u"WideId"}, {PropertyId(0x4002, kCeI4), 5, {}}},
        {{PropertyId(0x4001, kCeI4), 7, {}}, {kId, 7, {}}},
        Category(u"Wrapped", 65535)});
  EXPECT_EQ(Names(), (std::vector<std::u16string>{u"Kept"}))
      << "65535 as a 16-bit signed id is -1 and is skipped too";
  EXPECT_EQ(data.categories.entries[0].id, 1);
}

TEST_F(CategoriesTest, SortsByNameIgnoringCaseKeepingDatabaseOrderForEqualNames) {
  Load({Category(u"beta", 1), Category(u"Alpha", 2), Category(u"alpha", 3), Category(u"Gamma", 4),
        Category(u"ALPHA", 5)});
  EXPECT_EQ(Names(), (std::vector<std::u16string>{u"Alpha", u"alpha", u"ALPHA", u"beta", u"Gamma"}));
}

TEST_F(CategoriesTest, MissingDatabaseGivesAnEmptyListAndDefaultFilters) {
  LoadCategories(data, {registry(), locale(), files(), database(), bitmaps()}, IconsFolder(), Folder());
  EXPECT_TRUE(data.categories.entries.empty());
  ASSERT_EQ(data.filters.entries.size(), 32u);
  EXPECT_EQ(data.filters.entries[0].index, 0);
}

TEST_F(CategoriesTest, LoadsBitmapsColoursAndMasks) {
  ASSERT_TRUE(files().MakeDirectory(IconsFolder()));
  auto bitmap = TinyBitmap();
  ASSERT_TRUE(files().WriteAll(IconsFolder() + u"\\Work.bmp", bitmap.data(), bitmap.size()));
  WriteDword(registry(), kCurrentUser, kCategoriesKey.path, u"CatColor.Work", 0x123456);
  WriteDword(registry(), kCurrentUser, kCategoriesKey.path, u"CatFilter.Work", 5);
  WriteDword(registry(), kCurrentUser, kCategoriesKey.path, u"CatColor.home", 7);
  std::uint64_t wide = 9;
  WriteRaw(registry(), kCurrentUser, kCategoriesKey.path, u"CatFilter.Home", kRegDword, &wide, 8);
  Load({Category(u"Work", 1), Category(u"Home", 2)});

  const CategoryEntry& home = data.categories.entries[0];
  const CategoryEntry& work = data.categories.entries[1];
  EXPECT_TRUE(work.bitmap);
  EXPECT_EQ(work.color, 0x123456u);
  EXPECT_EQ(work.filterMask, 5u);
  EXPECT_FALSE(home.bitmap) << "no file, no bitmap, still listed";
  EXPECT_EQ(home.color, 7u) << "value names ignore case, as registry names do";
  EXPECT_EQ(home.filterMask, 0u) << "eight-byte data is not used";
}

TEST_F(CategoriesTest, SaveSetsOrDeletesEachAttribute) {
  WriteDword(registry(), kCurrentUser, kCategoriesKey.path, u"CatColor.Home", 7);
  WriteDword(registry(), kCurrentUser, kCategoriesKey.path, u"CatFilter.Home", 1);
  Load({Category(u"Home", 1), Category(u"Work", 2)});
  data.categories.entries[0].color = kNoCategoryColor;
  data.categories.entries[0].filterMask = 0;
  data.categories.entries[1].color = 0xFFFFFFFE;
  data.categories.entries[1].filterMask = 0x80000000;
  SaveCategoryAttributes(data.categories, registry());
  EXPECT_EQ(ValueNames(registry(), kCurrentUser, kCategoriesKey.path),
            (std::vector<std::u16string>{u"CatColor.Work", u"CatFilter.Work"}));
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kCategoriesKey.path, u"CatFilter.Work").dword, 0x80000000u);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kCategoriesKey.path, u"CatColor.Work").type, kRegDword);
}

TEST_F(CategoriesTest, FindsTheFirstRowHoldingY) {
  Load({Category(u"A", 1), Category(u"B", 2)});
  auto& entries = data.categories.entries;
  entries[0].rowTop = 0, entries[0].rowBottom = 20;
  entries[1].rowTop = 20, entries[1].rowBottom = 40;
  EXPECT_EQ(data.categories.FindAtY(20), &entries[0]) << "a shared edge belongs to the first row";
  EXPECT_EQ(data.categories.FindAtY(40), &entries[1]);
  EXPECT_EQ(data.categories.FindAtY(41), nullptr);
  EXPECT_EQ(data.categories.FindAtY(-1), nullptr);
  data.categories.Clear();
  EXPECT_TRUE(data.categories.entries.empty());
}

}  // namespace
}  // namespace tw::test
