// The filter list and TWFilters.txt.
#include "data/filters.h"

#include "base/text.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

class FiltersTest : public PlatformTest {
 protected:
  // Text as the Today item writes it: UTF-16 LE, no mark.
  void WriteFile(std::u16string_view text) {
    std::vector<std::uint8_t> bytes;
    for (char16_t c : text) bytes.insert(bytes.end(), {std::uint8_t(c & 0xFF), std::uint8_t(c >> 8)});
    ASSERT_TRUE(files().WriteAll(Folder() + u"\\TWFilters.txt", bytes.data(), bytes.size()));
  }
  int Read(std::u16string_view text) {
    WriteFile(text);
    return ReadFilters(filters, files(), Folder());
  }
  static std::u16string Sections(int count, int first = 0) {
    std::u16string text;
    for (int n = first; n < first + count; ++n)
      text += FormatText(u"[FILTER%d]\r\n\"Title\"=\"T%d\"\r\n\"Sensitivity\"=dword:%d\r\n"
                         u"\"Visible\"=dword:%d\r\n\"Uncategorized\"=dword:%d\r\n",
                         {n, n, n - 5, n % 2, n % 3 == 0 ? 1 : 0});
    return text;
  }
  static std::u16string Replace(std::u16string text, std::u16string_view from, std::u16string_view to) {
    return text.replace(text.find(from), from.size(), to);
  }

  FilterList filters;
};

TEST_F(FiltersTest, LinesAreReadByPosition) {
  EXPECT_EQ(Read(Sections(1, 0) + Sections(1, 5) + Sections(31, 1)), 1)
      << "an out-of-order section is skipped up to the expected header";
  EXPECT_EQ(filters.entries[1].title, u"T1");

  // The first "Visible" line is section 1's; without a number it keeps the line before's.
  ASSERT_EQ(Read(Replace(Sections(32), u"\"Visible\"=dword:1\r\n", u"\"Visible\"\r\n")), 1);
  EXPECT_EQ(filters.entries[1].sensitivity, -4);
  EXPECT_TRUE(filters.entries[1].visible) << "visible takes the sensitivity's -4";

  ASSERT_EQ(Read(Replace(Replace(Sections(32), u"T0", u"Caf\u00e9"), u"T1\"", u"\u0414\u0430\"")), 1);
  EXPECT_EQ(filters.entries[0].title, u"Caf\u00e9") << "Latin-1 survives the byte line reader";
  EXPECT_NE(filters.entries[1].title, u"\u0414\u0430") << "Cyrillic does not";
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
  ASSERT_TRUE(files().ReadAll(Folder() + u"\\TWFilters.txt", bytes));
  EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 6), std::string("[\0F\0I\0", 6)) << "UTF-16 LE, no mark";

  FilterList read;
  ASSERT_EQ(ReadFilters(read, files(), Folder()), 1);
  for (int i = 0; i < 32; ++i) EXPECT_EQ(read.entries[i].index, i + 1);
  EXPECT_EQ(read.entries[3].title, u"Work \"and\" play");
  EXPECT_EQ(read.entries[31].title, u"Filter 32");
  EXPECT_EQ(read.entries[3].sensitivity, -2);
  EXPECT_FALSE(read.entries[3].visible);
  EXPECT_TRUE(read.entries[3].includeUncategorized);
}

}  // namespace
}  // namespace tw::test
