// The settings export and import file.
#include "data/settings_file.h"

#include <map>

#include "app/text.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

constexpr std::u16string_view kRoot = kProductKey;

// Every value below a key, by "path|name", with its type and data.
using Tree = std::map<std::u16string, std::pair<std::uint32_t, std::u16string>>;

void Collect(Registry& registry, const std::u16string& path, Tree& tree) {
  for (const std::u16string& name : ValueNames(registry, kCurrentUser, path)) {
    StoredValue value = ReadValue(registry, kCurrentUser, path, name);
    tree[path + u"|" + name] = {value.type, value.type == kRegDword ? FormatText(u"%u", {value.dword}) : value.text};
  }
  for (const std::u16string& sub : SubkeyNames(registry, kCurrentUser, path)) {
    tree[path + u"\\" + sub + u"|"] = {};
    Collect(registry, path + u"\\" + sub, tree);
  }
}

class SettingsFileTest : public PlatformTest {
 protected:
  std::string Export() {
    SettingsTextOutput out;
    ExportAll(registry(), kRoot, data, out);
    return out.Bytes();
  }

  int Import(std::string_view utf8) {
    SettingsTextInput in = SettingsTextInput::FromBytes(
        std::span(reinterpret_cast<const std::uint8_t*>(utf8.data()), utf8.size()));
    return ImportSettings(in, registry(), data);
  }

  void AddCategory(std::u16string_view name, std::uint32_t mask = 0, std::uint32_t color = kNoCategoryColor) {
    CategoryEntry entry;
    entry.name.Assign(name);
    entry.filterMask = mask;
    entry.color = color;
    data.categories.entries.push_back(std::move(entry));
  }

  StoredValue Value(std::u16string_view path, std::u16string_view name) {
    return ReadValue(registry(), kCurrentUser, path, name);
  }

  CategoryData data;
};

TEST_F(SettingsFileTest, ExportWritesTheTreeThenCategoriesThenFilters) {
  WriteDword(registry(), kCurrentUser, kRoot, u"OnClick", 0xFFFFFFFF);
  WriteText(registry(), kCurrentUser, kRoot, u"FontFaceToUse", u"Say \"hi\" C:\\x");
  std::uint8_t blob[2] = {1, 2};
  WriteRaw(registry(), kCurrentUser, kRoot, u"Blob", kRegBinary, blob, 2);
  WriteRaw(registry(), kCurrentUser, kRoot, u"Multi", kRegMultiSz, u"a\0b\0", 10);
  WriteDword(registry(), kCurrentUser, std::u16string(kRoot) + u"\\Calendar", u"dNumOfDays", 3);
  { ScopedKey empty(registry(), kCurrentUser, std::u16string(kRoot) + u"\\Calendar\\Deep", true); }
  AddCategory(u"Work", 0x80000001, 0x00FF00);
  data.filters.entries.resize(1);
  data.filters.entries[0].title.Assign(u"Mine");
  data.filters.entries[0].index = 7;
  data.filters.entries[0].visible = false;

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

TEST_F(SettingsFileTest, AStringPast127CharactersEndsItsKeysValuesButNotItsSubkeys) {
  std::u16string key = std::u16string(kRoot) + u"\\Notes";
  WriteText(registry(), kCurrentUser, key, u"A", std::u16string(127, u'a'));
  WriteText(registry(), kCurrentUser, key, u"B", std::u16string(128, u'b'));
  WriteDword(registry(), kCurrentUser, key, u"C", 1);
  WriteDword(registry(), kCurrentUser, key + u"\\Sub", u"D", 2);
  std::string text = Export();
  EXPECT_NE(text.find("\"A\"=\"" + std::string(127, 'a') + "\""), std::string::npos);
  EXPECT_EQ(text.find("\"B\""), std::string::npos);
  EXPECT_EQ(text.find("\"C\""), std::string::npos);
  EXPECT_NE(text.find("[Software\\Orvex\\Tidewell\\Notes\\Sub]\r\n\"D\"=dword:2"), std::string::npos);
}

TEST_F(SettingsFileTest, RoundTripRestoresEveryValueAndTheLists) {
  const std::u16string german = u"Gr\u00fc\u00dfe \u00c4rger \u00f6de", cyrillic = u"\u041f\u0440\u0438\u0432\u0435\u0442 \u043c\u0438\u0440";
  WriteText(registry(), kCurrentUser, kRoot, u"dSelectedSkin", german);
  WriteText(registry(), kCurrentUser, kRoot, u"FontFaceToUse", cyrillic);
  WriteText(registry(), kCurrentUser, kRoot, u"Empty", u"");
  WriteDword(registry(), kCurrentUser, kRoot, u"dHeightLimit", 0x7FFFFFFF);
  WriteDword(registry(), kCurrentUser, kRoot, u"Lowest", 0x80000000);
  WriteDword(registry(), kCurrentUser, kRoot, u"NoColor", 0xFFFFFFFF);
  for (int i = 0; i < 40; ++i)
    WriteDword(registry(), kCurrentUser, std::u16string(kRoot) + u"\\Fonts", FormatText(u"Font%dlfHeight", {i}), i - 20);
  WriteText(registry(), kCurrentUser, std::u16string(kRoot) + u"\\TabSettings\\\u0414\u0440\u0443\u0433\u043e\u0439",
            u"DLL", u"\\Windows\\plugin.dll");
  WriteText(registry(), kCurrentUser, std::u16string(kRoot) + u"\\Categories", u"AdditionalIconsFolder", german);
  AddCategory(german, 3, 0x123456);
  AddCategory(cyrillic, 0xFFFFFFFF, kNoCategoryColor);
  MakeDefaultFilters(data.filters);
  data.filters.entries[2].title.Assign(cyrillic);
  data.filters.entries[2].includeUncategorized = true;

  Tree before;
  Collect(registry(), std::u16string(kRoot), before);
  std::string file = Export();
  CategoryData exported = std::move(data);
  registry().DeleteTree(kCurrentUser, kRoot);
  AddCategory(german);
  AddCategory(cyrillic, 9, 9);
  MakeDefaultFilters(data.filters);

  ASSERT_EQ(Import(file), 1);
  Tree after;
  Collect(registry(), std::u16string(kRoot), after);
  EXPECT_EQ(after.size(), before.size());
  for (const auto& [name, value] : before) {
    auto found = after.find(name);
    ASSERT_NE(found, after.end()) << Show(name);
    EXPECT_EQ(found->second, value) << Show(name);
  }
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(data.categories.entries[i].filterMask, exported.categories.entries[i].filterMask);
    EXPECT_EQ(data.categories.entries[i].color, exported.categories.entries[i].color);
  }
  EXPECT_EQ(data.filters.entries[2].title, cyrillic);
  EXPECT_TRUE(data.filters.entries[2].includeUncategorized);
}

TEST_F(SettingsFileTest, ImportWritesEveryValueExceptTheSentinelString) {
  WriteText(registry(), kCurrentUser, kRoot, u"Gone", u"old");
  ASSERT_EQ(Import("\n[Software\\Orvex\\Tidewell]\n\"Gone\"=\"not_the_same\"\n\"Zero\"=dword:0\n"
                   "\"All\"=dword:-1\n\"Max\"=dword:2147483647\n\"Same\"=\"\"\n\"Quote\"=\"a\"=\"b\"\n"
                   "garbage line\n\"Hex\"=dword:ff\n"),
            1);
  EXPECT_FALSE(Value(kRoot, u"Gone").present);
  EXPECT_EQ(Value(kRoot, u"Zero").type, kRegDword) << "written although it equals the usual default";
  EXPECT_EQ(Value(kRoot, u"All").dword, 0xFFFFFFFFu);
  EXPECT_EQ(Value(kRoot, u"Max").dword, 0x7FFFFFFFu);
  EXPECT_EQ(Value(kRoot, u"Same").type, kRegSz);
  EXPECT_EQ(Value(kRoot, u"Quote").text, u"a\"=\"b") << "the data is taken by position";
  EXPECT_EQ(Value(kRoot, u"Hex").dword, 0u) << "decimal only";
  EXPECT_EQ(ValueNames(registry(), kCurrentUser, kRoot).size(), 6u);
}

TEST_F(SettingsFileTest, HeadersNameAnyKeyBelowCurrentUser) {
  ASSERT_EQ(Import("\n[Software\\TwTest\\Outside]\n\"A\"=dword:1\n"
                   "\n[Software\\TwTest\\Open\n\"C\"=dword:3\n"
                   "\nxSoftware\\TwTest\\Closed]"),
            1);
  EXPECT_EQ(Value(u"Software\\TwTest\\Outside", u"A").dword, 1u);
  EXPECT_EQ(Value(u"Software\\TwTest\\Ope", u"C").dword, 3u) << "the last two characters always go";
  EXPECT_TRUE(KeyExists(registry(), kCurrentUser, u"Software\\TwTest\\Close"))
      << "a last line without its line end is accepted by its closing bracket";
  EXPECT_EQ(Import("\n[Software\\TwTest\\Outside]\n\nxSoftware\\TwTest\\Closed]\n"), 0)
      << "any other line ends in its line feed, not in a bracket";
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
      {"no empty line before the first header", "[Software\\Orvex\\Tidewell]\n\"A\"=dword:1\n", 1},
      {"empty file", "", 1},
  };
  for (const Case& c : cases) {
    registry().DeleteTree(kCurrentUser, kRoot);
    EXPECT_EQ(Import(c.text), c.result) << c.what;
    bool imported = c.text.starts_with("\n");
    EXPECT_EQ(Value(kRoot, u"A").present, imported) << c.what;
    EXPECT_FALSE(Value(kRoot, u"B").present) << c.what;
  }
}

TEST_F(SettingsFileTest, CategoriesAreMatchedByExactNameAndTakeTheirLinesByPosition) {
  AddCategory(u"Home");
  AddCategory(u"Work");
  ASSERT_EQ(Import("\n[::Categories::]\n"
                   "\"Category\"=\"Home\"\n\"FiltersFlag\"=dword:6\n\"Extra\"=dword:99\n\"Color\"=dword:255\n"
                   "\"Category\"=\"work\"\n\"FiltersFlag\"=dword:1\n\"Color\"=dword:1\n"
                   "\"Category\"=\"Away\"\n\"FiltersFlag\"=dword:1\n\"Color\"=dword:1\n"),
            1);
  EXPECT_EQ(data.categories.entries[0].filterMask, 6u);
  EXPECT_EQ(data.categories.entries[0].color, 255u) << "the colour comes from the line after the stray one";
  EXPECT_EQ(data.categories.entries[1].filterMask, 0u) << "names are matched with their case";
  EXPECT_EQ(data.categories.entries[1].color, kNoCategoryColor);
}

TEST_F(SettingsFileTest, FiltersAreMatchedByIndex) {
  MakeDefaultFilters(data.filters);
  ASSERT_EQ(Import("\n[::Filters::]\n"
                   "\"FilterName\"=\"Zero\"\n\"Index\"=dword:0\n\"VisibleState\"=dword:0\n\"IncludeUncategorized\"=dword:5\n"
                   "\"FilterName\"=\"Nowhere\"\n\"Index\"=dword:32\n\"VisibleState\"=dword:0\n\"IncludeUncategorized\"=dword:1\n"),
            1);
  EXPECT_EQ(data.filters.entries[0].title, u"Zero");
  EXPECT_FALSE(data.filters.entries[0].visible);
  EXPECT_TRUE(data.filters.entries[0].includeUncategorized);
  EXPECT_EQ(data.filters.entries[31].title, u"Filter 32") << "index 32 exists only in a file-read list";
}

TEST(SettingsTextTest, ReadsEveryEncodingTheSameWay) {
  const std::u16string expected = u"\n[\u00c4\u0416]\n\"x\"=\"\u20ac\"\n";
  std::string utf8 = "\r\n[\xC3\x84\xD0\x96]\r\n\"x\"=\"\xE2\x82\xAC\"\r\n";
  auto utf16 = [&](bool bigEndian, bool mark) {
    std::string bytes = mark ? (bigEndian ? "\xFE\xFF" : "\xFF\xFE") : "";
    for (char16_t c : Utf8ToUtf16(utf8)) {
      char high = static_cast<char>(c >> 8), low = static_cast<char>(c & 0xFF);
      bytes += bigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
  };
  for (const std::string& bytes : {utf8, "\xEF\xBB\xBF" + utf8, utf16(false, true), utf16(true, true),
                                   utf16(false, false), utf16(true, false)}) {
    auto span = std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    EXPECT_EQ(DecodeSettingsText(span), expected) << bytes.size();
  }
  std::string windows1252 = "\"caf\xE9\"=\"\x80\x81\"\r\n";
  auto span = std::span(reinterpret_cast<const std::uint8_t*>(windows1252.data()), windows1252.size());
  EXPECT_EQ(DecodeSettingsText(span), u"\"caf\u00e9\"=\"\u20ac\u0081\"\n");
}

TEST(SettingsTextTest, SplitsLinesAsAnEightHundredCharacterBufferDoes) {
  SettingsTextInput in(std::u16string(799, u'a') + u"\n" + std::u16string(900, u'b') + u"\nlast");
  std::vector<std::size_t> lengths;
  std::u16string line;
  while (in.ReadLine(line)) lengths.push_back(line.size());
  EXPECT_EQ(lengths, (std::vector<std::size_t>{799, 1, 799, 102, 4}));
  ASSERT_TRUE(in.Rewind());
  ASSERT_TRUE(in.ReadLine(line));
  EXPECT_EQ(line.size(), 799u);
}

TEST_F(SettingsFileTest, ALongLineSplitsIntoAnEmptyLineAndFails) {
  std::string name(789, 'n');  // the line is exactly 799 characters
  std::string text = "\n[Software\\Orvex\\Tidewell]\n\"" + name + "\"=dword:1\n\"A\"=dword:1\n";
  EXPECT_EQ(Import(text), 0) << "the split leaves \"\\n\" alone, read as a section break";
}

TEST_F(SettingsFileTest, ExportAndImportCommandsUseTheDocumentsFile) {
  WriteDword(registry(), kCurrentUser, kRoot, u"OnClick", 2);
  EXPECT_EQ(ImportSettingsFile(registry(), files(), data, Folder()).message, (MessagePair{40210, 40211}));
  EXPECT_EQ(ExportSettingsFile(registry(), files(), data, Folder()), (MessagePair{40208, 40209}));
  registry().DeleteTree(kCurrentUser, kRoot);
  ImportOutcome outcome = ImportSettingsFile(registry(), files(), data, Folder());
  EXPECT_TRUE(outcome.succeeded);
  EXPECT_EQ(outcome.message, (MessagePair{40214, 40215}));
  EXPECT_EQ(Value(kRoot, u"OnClick").dword, 2u);
  std::string broken = "\n[Software\\Orvex\\Tidewell]\n\n";
  ASSERT_TRUE(files().WriteAll(Folder() + u"\\TW_Settings.txt", broken.data(), broken.size()));
  outcome = ImportSettingsFile(registry(), files(), data, Folder());
  EXPECT_FALSE(outcome.succeeded);
  EXPECT_EQ(outcome.message, (MessagePair{40212, 40213}));
}

}  // namespace
}  // namespace tw::test
