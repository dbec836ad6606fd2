// The settings export and import file.
#include "data/settings_file.h"

#include "base/text.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

constexpr std::u16string_view kRoot = kProductKey;

std::span<const std::uint8_t> Bytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

class SettingsFileTest : public PlatformTest {
 protected:
  std::string Export() {
    SettingsTextOutput out;
    ExportAll(registry(), kRoot, data, out);
    return out.Bytes();
  }
  int Import(std::string_view utf8) {
    SettingsTextInput in = SettingsTextInput::FromBytes(Bytes(utf8));
    return ImportSettings(in, registry(), data);
  }
  void AddCategory(std::u16string_view name, std::uint32_t mask = 0, std::uint32_t color = kNoCategoryColor) {
    CategoryEntry& entry = data.categories.entries.emplace_back();
    entry.name.Assign(name);
    entry.filterMask = mask;
    entry.color = color;
  }

  CategoryData data;
};

TEST_F(SettingsFileTest, ExportWritesTheTreeThenCategoriesThenFilters) {
  Put(kRoot, u"OnClick", 0xFFFFFFFF);
  PutText(kRoot, u"FontFaceToUse", u"Say \"hi\" C:\\x");
  WriteRaw(registry(), kCurrentUser, kRoot, u"Blob", kRegBinary, "\1\2", 2);
  WriteRaw(registry(), kCurrentUser, kRoot, u"Multi", kRegMultiSz, u"a\0b\0", 10);
  Put(kCalendarKey.path, u"dNumOfDays", 3);
  { ScopedKey empty(registry(), kCurrentUser, std::u16string(kRoot) + u"\\Calendar\\Deep", true); }
  AddCategory(u"Work", 0x80000001, 0x00FF00);
  FilterEntry& filter = data.filters.entries.emplace_back();
  filter.title.Assign(u"Mine");
  filter.index = 7;
  filter.visible = false;

  EXPECT_EQ(Export(),
            "\r\n[Software\\Orvex\\Tidewell]\r\n"
            "\"FontFaceToUse\"=\"Say \"hi\" C:\\x\"\r\n"
            "\"OnClick\"=dword:-1\r\n"
            "\r\n[Software\\Orvex\\Tidewell\\Calendar]\r\n"
            "\"dNumOfDays\"=dword:3\r\n"
            "\r\n[Software\\Orvex\\Tidewell\\Calendar\\Deep]\r\n"
            "\r\n[::Categories::]\r\n"
            "\"Category\"=\"Work\"\r\n\"FiltersFlag\"=dword:-2147483647\r\n\"Color\"=dword:65280\r\n"
            "\r\n[::Filters::]\r\n"
            "\"FilterName\"=\"Mine\"\r\n\"Index\"=dword:7\r\n\"VisibleState\"=dword:0\r\n"
            "\"IncludeUncategorized\"=dword:0\r\n");
}

TEST_F(SettingsFileTest, RoundTripRestoresEveryValueAndTheLists) {
  const std::u16string german = u"Grüße Ärger öde", cyrillic = u"Привет мир";
  PutText(kRoot, u"dSelectedSkin", german);
  PutText(kRoot, u"FontFaceToUse", cyrillic);
  PutText(kRoot, u"Empty", u"");
  Put(kRoot, u"Lowest", 0x80000000);
  PutText(u"Software\\Orvex\\Tidewell\\TabSettings\\Другой", u"DLL", u"\\Windows\\plugin.dll");
  PutText(kCategoriesKey.path, u"AdditionalIconsFolder", german);
  AddCategory(german, 3, 0x123456);
  AddCategory(cyrillic, 0xFFFFFFFF, kNoCategoryColor);
  MakeDefaultFilters(data.filters);
  data.filters.entries[2].title.Assign(cyrillic);
  data.filters.entries[2].includeUncategorized = true;

  std::string file = Export();
  registry().DeleteTree(kCurrentUser, kRoot);
  data = {};
  AddCategory(german);
  AddCategory(cyrillic, 9, 9);
  MakeDefaultFilters(data.filters);
  ASSERT_EQ(Import(file), 1);
  EXPECT_EQ(Export(), file) << "the same values, types, keys and list entries";
}

TEST_F(SettingsFileTest, FailuresKeepWhatWasWrittenBefore) {
  const std::string first = "\n[Software\\Orvex\\Tidewell]\n\"A\"=dword:1\n";
  struct Case {
    const char* what;
    std::string text;
    int result;
  } cases[] = {
      {"empty line as the last line", first + "\n", 0},
      {"header neither opened nor closed", first + "\nSoftware\\X\n\"B\"=dword:2\n", 0},
      {"empty header line", first + "\n\n", 0},
      // Split by the 800-character line buffer, the rest reads as a section break.
      {"799-character line", first + "\"" + std::string(789, 'n') + "\"=dword:1\n\"B\"=dword:1\n", 0},
      {"no empty line before the first header", "[Software\\Orvex\\Tidewell]\n\"A\"=dword:1\n", 1},
      {"empty file", "", 1},
  };
  for (const Case& c : cases) {
    registry().DeleteTree(kCurrentUser, kRoot);
    EXPECT_EQ(Import(c.text), c.result) << c.what;
    EXPECT_EQ(Stored(kRoot, u"A").present, c.text.starts_with("\n")) << c.what;
    EXPECT_FALSE(Stored(kRoot, u"B").present) << c.what;
  }
}

TEST(SettingsTextTest, ReadsEveryEncodingTheSameWay) {
  const std::u16string expected = u"\n[\u00c4\u0416]\n\"x\"=\"\u20ac\"\n";
  std::string utf8 = "\r\n[\xC3\x84\xD0\x96]\r\n\"x\"=\"\xE2\x82\xAC\"\r\n";
  auto utf16 = [&](bool bigEndian, bool mark) {
    std::string bytes = mark ? (bigEndian ? "\xFE\xFF" : "\xFF\xFE") : "";
    for (char16_t c : Utf8ToUtf16(utf8))
      bytes += bigEndian ? std::string{char(c >> 8), char(c & 0xFF)} : std::string{char(c & 0xFF), char(c >> 8)};
    return bytes;
  };
  // Zeros that do not run through the file, one or a tail of them, are dropped from UTF-8.
  for (const std::string& bytes : {utf8, "\xEF\xBB\xBF" + utf8, utf16(false, true), utf16(true, true),
                                   utf16(false, false), utf16(true, false), utf8.substr(0, 9) + '\0' + utf8.substr(9),
                                   utf8 + std::string(7, '\0')})
    EXPECT_EQ(DecodeSettingsText(Bytes(bytes)), expected) << bytes.size();
  EXPECT_EQ(DecodeSettingsText(Bytes("\"caf\xE9\"=\"\x80\x81\"\r\n")), u"\"caf\u00e9\"=\"\u20ac\u0081\"\n");
  EXPECT_EQ(DecodeSettingsText(Bytes("\xFE\xFF")), u"");
  EXPECT_EQ(DecodeSettingsText(Bytes(std::string("\0A\x4E\x2D\x65\x87\x5B\x57", 8))), u"A\u4E2D\u6587\u5B57")
      << "one zero in four units is enough";
  SettingsTextOutput out;
  out.Write(u"\u20AC\uFF21x\xD83D\xDE00\n");
  EXPECT_EQ(out.Bytes(), "\xE2\x82\xAC\xEF\xBC\xA1x\xF0\x9F\x98\x80\r\n");
  // An import line holds 798 characters: a value named "n" keeps 792.
  EXPECT_EQ(ImportableText(u"n", std::u16string(900, u'a')).size(), 792u);
  EXPECT_EQ(ImportableText(u"n", std::u16string(791, u'a') + u"\xDBFF\xDC00" u"b").size(), 791u) << "no half pair";
}

}  // namespace
}  // namespace tw::test
