// The filter list and TWFilters.txt.
#include "data/filters.h"

#include "data/line_reader.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

class FiltersTest : public PlatformTest {
 protected:
  std::u16string Path() { return Folder() + u"\\TWFilters.txt"; }

  // Text as the Today item writes it: UTF-16 LE, no mark.
  void WriteFile(std::u16string_view text) {
    std::vector<std::uint8_t> bytes;
    for (char16_t c : text) {
      bytes.push_back(c & 0xFF);
      bytes.push_back(c >> 8);
    }
    ASSERT_TRUE(files().WriteAll(Path(), bytes.data(), bytes.size()));
  }

  static std::u16string Sections(int count, int first = 0) {
    std::u16string text;
    for (int n = first; n < first + count; ++n)
      text += FormatText(u"[FILTER%d]\r\n\"Title\"=\"T%d\"\r\n\"Sensitivity\"=dword:%d\r\n"
                         u"\"Visible\"=dword:%d\r\n\"Uncategorized\"=dword:%d\r\n",
                         {n, n, n - 5, n % 2, n % 3 == 0 ? 1 : 0});
    return text;
  }

  FilterList filters;
};

TEST_F(FiltersTest, DefaultsAreNumberedFromZeroAndTitledFromOne) {
  EXPECT_EQ(ReadFilters(filters, files(), Folder()), 0);
  ASSERT_EQ(filters.entries.size(), 32u);
  for (int i = 0; i < 32; ++i) {
    const FilterEntry& filter = filters.entries[i];
    EXPECT_EQ(filter.index, i);
    EXPECT_EQ(filter.title, FormatText(u"Filter %d", {i + 1}));
    EXPECT_TRUE(filter.visible);
    EXPECT_FALSE(filter.includeUncategorized);
    EXPECT_EQ(filter.sensitivity, 0);
  }
}

TEST_F(FiltersTest, ThirtyTwoSectionsAreNumberedFromOne) {
  WriteFile(Sections(32));
  ASSERT_EQ(ReadFilters(filters, files(), Folder()), 1);
  ASSERT_EQ(filters.entries.size(), 32u);
  const FilterEntry& seventh = filters.entries[6];
  EXPECT_EQ(seventh.index, 7);
  EXPECT_EQ(seventh.title, u"T6");
  EXPECT_EQ(seventh.sensitivity, 1);
  EXPECT_FALSE(seventh.visible);
  EXPECT_TRUE(seventh.includeUncategorized);
  EXPECT_EQ(filters.entries[0].sensitivity, -5);
}

TEST_F(FiltersTest, AnyOtherNumberOfSectionsGivesTheDefaults) {
  for (std::u16string text : {Sections(31), Sections(33), Sections(31, 1) + Sections(1, 0), std::u16string()}) {
    WriteFile(text);
    EXPECT_EQ(ReadFilters(filters, files(), Folder()), 0);
    EXPECT_EQ(filters.entries[31].title, u"Filter 32");
  }
}

TEST_F(FiltersTest, AnOutOfOrderSectionIsSkippedUpToTheExpectedHeader) {
  std::u16string text = Sections(1, 0) + Sections(1, 5) + Sections(31, 1);
  WriteFile(text);
  ASSERT_EQ(ReadFilters(filters, files(), Folder()), 1);
  EXPECT_EQ(filters.entries[1].title, u"T1");
}

TEST_F(FiltersTest, AnUnparsedNumberKeepsThePreviousLinesNumber) {
  std::u16string text = Sections(32);
  std::u16string broken = u"\"Visible\"=dword:1\r\n";
  text.replace(text.find(broken), broken.size(), u"\"Visible\"\r\n");  // first such line: section 1
  WriteFile(text);
  ASSERT_EQ(ReadFilters(filters, files(), Folder()), 1);
  EXPECT_EQ(filters.entries[1].sensitivity, -4);
  EXPECT_TRUE(filters.entries[1].visible) << "visible takes the sensitivity's -4";
}

TEST_F(FiltersTest, LatinOneTitlesSurviveButCyrillicDoesNot) {
  std::u16string text = Sections(32);
  text.replace(text.find(u"T0"), 2, u"Caf\u00e9");
  text.replace(text.find(u"T1\""), 2, u"\u0414\u0430");
  WriteFile(text);
  ASSERT_EQ(ReadFilters(filters, files(), Folder()), 1);
  EXPECT_EQ(filters.entries[0].title, u"Caf\u00e9");
  EXPECT_NE(filters.entries[1].title, u"\u0414\u0430");
}

TEST_F(FiltersTest, WritingAndReadingRenumbersDefaultsFromOne) {
  WriteFile(Sections(31) + Sections(31));  // replaced, not appended to
  MakeDefaultFilters(filters);
  filters.entries[3].title.Assign(u"Work \"and\" play");
  filters.entries[3].sensitivity = -2;
  filters.entries[3].visible = false;
  filters.entries[3].includeUncategorized = true;
  WriteFilters(filters, files(), Folder());

  std::vector<std::uint8_t> bytes;
  ASSERT_TRUE(files().ReadAll(Path(), bytes));
  std::u16string head;
  for (std::size_t i = 0; i + 1 < 24; i += 2) head.push_back(bytes[i] | bytes[i + 1] << 8);
  EXPECT_EQ(head, u"[FILTER0]\r\n\"") << "UTF-16 LE, no mark";

  FilterList read;
  ASSERT_EQ(ReadFilters(read, files(), Folder()), 1);
  for (int i = 0; i < 32; ++i) EXPECT_EQ(read.entries[i].index, i + 1);
  EXPECT_EQ(read.entries[3].title, u"Work \"and\" play");
  EXPECT_EQ(read.entries[3].sensitivity, -2);
  EXPECT_FALSE(read.entries[3].visible);
  EXPECT_TRUE(read.entries[3].includeUncategorized);
}

TEST(FilterListTest, InsertGoesBeforeEqualIndexesExceptTheHead) {
  FilterList list;
  for (int index : {5, 3, 9, 5, 7, 3}) {
    FilterEntry entry;
    entry.index = index;
    entry.title.Assign(FormatText(u"%d-%d", {index, static_cast<int>(list.entries.size())}));
    list.Insert(std::move(entry));
  }
  std::vector<std::u16string> titles;
  for (const FilterEntry& entry : list.entries) titles.push_back(entry.title.Str());
  EXPECT_EQ(titles, (std::vector<std::u16string>{u"3-1", u"3-5", u"5-3", u"5-0", u"7-4", u"9-2"}));
}

}  // namespace
}  // namespace tw::test
