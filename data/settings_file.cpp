#include "data/settings_file.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <unordered_map>

#include "base/text.h"
#include "data/line_reader.h"
#include "data/registry_snapshot.h"
#include "data/value_lines.h"
#include "settings/registry_values.h"

namespace tw {
namespace {

constexpr std::u16string_view kCategoriesSection = u"::Categories::";
constexpr std::u16string_view kFiltersSection = u"::Filters::";
constexpr std::u16string_view kCategory = u"Category", kFiltersFlag = u"FiltersFlag", kColor = u"Color";
constexpr std::u16string_view kFilterName = u"FilterName", kIndex = u"Index",
                              kVisibleState = u"VisibleState",
                              kIncludeUncategorized = u"IncludeUncategorized";
// Imported strings are written unless their data is this very text.
constexpr std::u16string_view kNotTheSame = u"not_the_same";

// The export's subkey name buffer.
constexpr std::uint32_t kNameChars = 256;
// The longest line the import reads back whole, its line feed aside.
constexpr std::size_t kImportLineChars = SettingsTextInput::kLineBuffer - 2;
constexpr std::size_t kStringLineQuotes = 5;    // "name"="data"
constexpr std::size_t kDwordLineLongest = 20;   // "name"=dword:-2147483648

void WriteLine(SettingsTextOutput& out, std::u16string_view format, std::initializer_list<FormatArg> args) {
  out.Write(FormatText(format, args, WideString::kMaxLength));
  out.Write(u"\n");
}

std::u16string_view StringData(const std::uint8_t* data, std::uint32_t size) {
  std::u16string_view text(reinterpret_cast<const char16_t*>(data), size / 2);
  return text.substr(0, text.find(u'\0'));
}

// Values written by the export: strings and DWORDs only. A whole export
// leaves out a name that would not read back as itself and cuts a string to
// what the import reads back in one line.
bool WriteValue(const EnumeratedValue& value, bool whole, SettingsTextOutput& out) {
  if (whole && !ReadsBackAsItself(value.name)) return false;
  if (value.type == kRegSz) {
    std::u16string_view text = StringData(value.data.data(), static_cast<std::uint32_t>(value.data.size()));
    WriteLine(out, kStringLineFormat, {value.name, whole ? ImportableText(value.name, text) : text});
    return true;
  }
  if (value.type == kRegDword) {
    std::int32_t number = 0;
    std::memcpy(&number, value.data.data(), std::min(value.data.size(), sizeof number));
    WriteLine(out, kDwordLineFormat, {value.name, number});
    return true;
  }
  return false;
}

std::vector<MetValue> ExportValues(Registry& registry, RegKey key, bool whole, SettingsTextOutput& out) {
  std::vector<MetValue> met;
  ValueEnumerator values(registry, key, whole);
  for (EnumeratedValue value; values.Next(value);) {
    bool written = WriteValue(value, whole, out);
    if (whole) met.push_back({std::u16string(value.name), written});
  }
  return met;
}

// The subtree at path, depth first; a missing key is created and exported
// empty. With addenda the values are whole and each key gets its lines.
void ExportTree(Registry& registry, std::u16string_view path, KeyAddenda* addenda, SettingsTextOutput& out) {
  ScopedKey key(registry, kCurrentUser, path, true);
  WriteSectionHeader(path, out);
  if (!key) return;
  std::vector<MetValue> met = ExportValues(registry, key.get(), addenda != nullptr, out);
  if (addenda != nullptr) addenda->Write(path, met, out);
  for (std::uint32_t index = 0;; ++index) {
    char16_t name[kNameChars];
    std::uint32_t nameChars = kNameChars;
    if (registry.EnumKey(key.get(), index, name, nameChars) != kRegSuccess) break;
    ExportTree(registry, FormatText(u"%s\\%s", {path, std::u16string_view(name, nameChars)}, WideString::kMaxLength),
               addenda, out);
  }
}

// The lines of one import, with the one number that a line which does not
// parse leaves as it was.
struct ImportReader {
  explicit ImportReader(SettingsTextInput& input) : in(input) {}

  SettingsTextInput& in;
  std::u16string line;
  WideString name, data;
  std::int32_t number = 0;

  bool Next() { return in.ReadLine(line); }
  std::int32_t NextNumber() {
    Next();
    ParseDwordLine(line, name, number, 10);
    return number;
  }
  void ParseString() { ParseStringLine(line, name, data); }
};

void ImportRegistryLine(ImportReader& reader, Registry& registry, RegKey key) {
  if (reader.line.find(u"\"=\"") != std::u16string::npos) {
    reader.ParseString();
    WriteString(registry, key, reader.name.View(), reader.data.View(), kNotTheSame);
  } else if (reader.line.find(u"\"=dword:") != std::u16string::npos &&
             ParseDwordLine(reader.line, reader.name, reader.number, 10)) {
    // A default one above the value makes the write unconditional.
    std::int32_t differentDefault = static_cast<std::int32_t>(static_cast<std::uint32_t>(reader.number) + 1);
    WriteDword(registry, key, reader.name.View(), reader.number, differentDefault);
  }
}

// A category takes three lines after its name, or four when the third is not
// its colour.
// Categories by exact name, the first of equal names winning, as a search
// from the head finds them.
class CategoryIndex {
 public:
  explicit CategoryIndex(CategoryList& categories) {
    for (CategoryEntry& entry : categories.entries) byName_.emplace(entry.name.View(), &entry);
  }
  CategoryEntry* Find(std::u16string_view name) const {
    auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : found->second;
  }

 private:
  std::unordered_map<std::u16string_view, CategoryEntry*> byName_;
};

void ImportCategory(ImportReader& reader, const CategoryIndex& categories) {
  reader.ParseString();
  WideString category = reader.data;
  std::uint32_t mask = static_cast<std::uint32_t>(reader.NextNumber());
  std::uint32_t color = static_cast<std::uint32_t>(reader.NextNumber());
  if (!EqualsIgnoreCase(reader.name.View(), kColor)) color = static_cast<std::uint32_t>(reader.NextNumber());
  if (CategoryEntry* entry = categories.Find(category.View())) {
    entry->filterMask = mask;
    entry->color = color;
  }
}

void ImportFilter(ImportReader& reader, FilterList& filters) {
  reader.ParseString();
  WideString title = reader.data;
  std::int32_t index = reader.NextNumber();
  bool visible = reader.NextNumber() != 0;
  bool includeUncategorized = reader.NextNumber() != 0;
  if (FilterEntry* filter = filters.FindIndex(index)) {
    filter->title = title;
    filter->visible = visible;
    filter->includeUncategorized = includeUncategorized;
  }
}

enum class Section { None, Registry, Categories, Filters };

// The header after an empty line: accepted if it opens with '[' or else
// closes with ']'; its name drops the first character and the last two.
bool ReadHeader(ImportReader& reader, std::u16string& sectionName) {
  if (!reader.Next() || reader.line.empty()) return false;
  if (reader.line.front() != u'[' && reader.line.back() != u']') return false;
  sectionName = reader.line.size() < 3 ? std::u16string() : reader.line.substr(1, reader.line.size() - 3);
  return true;
}

// Without a registry, registry sections are read and passed over.
int ImportFile(SettingsTextInput& in, Registry* registry, CategoryData& data) {
  if (!in.Rewind()) return 0;
  ImportReader reader(in);
  if (!reader.Next()) return 1;
  CategoryIndex categories(data.categories);
  Section section = Section::None;
  std::optional<ScopedKey> key;
  if (registry != nullptr) key.emplace(*registry);
  do {
    if (reader.line == u"\n") {
      if (key) key->Reset();
      std::u16string sectionName;
      if (!ReadHeader(reader, sectionName)) return 0;
      if (sectionName == kCategoriesSection) {
        section = Section::Categories;
      } else if (sectionName == kFiltersSection) {
        section = Section::Filters;
      } else {
        section = key ? Section::Registry : Section::None;
        if (key && key->Open(kCurrentUser, sectionName, true) != kRegSuccess) return 0;
      }
    } else if (section == Section::Registry) {
      ImportRegistryLine(reader, *registry, key->get());
    } else if (section == Section::Categories) {
      ImportCategory(reader, categories);
    } else if (section == Section::Filters) {
      ImportFilter(reader, data.filters);
    }
  } while (reader.Next());
  return 1;
}

}  // namespace

bool ReadsBackAsItself(std::u16string_view name) {
  return name.size() + kDwordLineLongest < kImportLineChars && name.find_first_of(u"\"\n") == name.npos;
}

std::u16string_view ImportableText(std::u16string_view name, std::u16string_view text) {
  text = text.substr(0, text.find(u'\n'));
  std::size_t room = ReadsBackAsItself(name) ? kImportLineChars - kStringLineQuotes - name.size() : 0;
  if (room >= text.size()) return text;
  if (room > 0 && text[room - 1] >= 0xD800 && text[room - 1] <= 0xDBFF) --room;
  return text.substr(0, room);
}

void ExportRegistryTree(Registry& registry, std::u16string_view path, SettingsTextOutput& out) {
  ExportTree(registry, path, nullptr, out);
}

void ExportWholeTree(Registry& registry, std::u16string_view path, KeyAddenda& addenda, SettingsTextOutput& out) {
  ExportTree(registry, path, &addenda, out);
}

void WriteSectionHeader(std::u16string_view name, SettingsTextOutput& out) {
  out.Write(FormatText(u"\n[%s]\n", {name}, WideString::kMaxLength));
}

void WriteCategoriesSection(const CategoryList& categories, SettingsTextOutput& out) {
  WriteSectionHeader(kCategoriesSection, out);
  for (const CategoryEntry& entry : categories.entries) {
    WriteLine(out, kStringLineFormat, {kCategory, entry.name.View()});
    WriteLine(out, kDwordLineFormat, {kFiltersFlag, entry.filterMask});
    WriteLine(out, kDwordLineFormat, {kColor, entry.color});
  }
}

void WriteFiltersSection(const FilterList& filters, SettingsTextOutput& out) {
  WriteSectionHeader(kFiltersSection, out);
  for (const FilterEntry& filter : filters.entries) {
    WriteLine(out, kStringLineFormat, {kFilterName, filter.title.View()});
    WriteLine(out, kDwordLineFormat, {kIndex, filter.index});
    WriteLine(out, kDwordLineFormat, {kVisibleState, filter.visible ? 1 : 0});
    WriteLine(out, kDwordLineFormat, {kIncludeUncategorized, filter.includeUncategorized ? 1 : 0});
  }
}

void ExportAll(Registry& registry, std::u16string_view path, const CategoryData& data,
               SettingsTextOutput& out) {
  ExportRegistryTree(registry, path, out);
  WriteCategoriesSection(data.categories, out);
  WriteFiltersSection(data.filters, out);
}

int ImportSettings(SettingsTextInput& in, Registry& registry, CategoryData& data) {
  return ImportFile(in, &registry, data);
}

int ImportLists(SettingsTextInput& in, CategoryData& data) { return ImportFile(in, nullptr, data); }

MessagePair ExportSettingsFile(Registry& registry, FileSystem& files, const CategoryData& data,
                               std::u16string_view documentsFolder) {
  SettingsTextOutput out;
  ExportAll(registry, kProductKey, data, out);
  files.WriteAll(FormatText(u"%s\\%s", {documentsFolder, kSettingsFileName}, WideString::kMaxLength),
                 out.Bytes().data(), out.Bytes().size());
  return kSettingsExported;
}

ImportOutcome ImportSettingsFile(Registry& registry, FileSystem& files, CategoryData& data,
                                 std::u16string_view documentsFolder) {
  std::vector<std::uint8_t> bytes;
  if (!files.ReadAll(FormatText(u"%s\\%s", {documentsFolder, kSettingsFileName}, WideString::kMaxLength),
                     bytes))
    return {false, kCannotOpenSettingsFile};
  SettingsTextInput in = SettingsTextInput::FromBytes(bytes);
  if (!ImportSettings(in, registry, data)) return {false, kImportFailed};
  return {true, kSettingsImported};
}

}  // namespace tw
