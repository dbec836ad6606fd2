// The settings export file: sections headed by a registry path below
// HKEY_CURRENT_USER holding "name"="text" and "name"=dword:n lines (signed
// decimal), then the "::Categories::" and "::Filters::" pseudo-sections.
// Schemes are files of the same form.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "data/categories.h"
#include "data/settings_text.h"
#include "platform/file_system.h"
#include "platform/registry.h"
#include "resources/string_ids.h"

namespace tw {

inline constexpr std::u16string_view kSettingsFileName = u"TW_Settings.txt";

// The subtree at path, depth first; a missing key is created and exported empty.
void ExportRegistryTree(Registry& registry, std::u16string_view path, SettingsTextOutput& out);

// Whether a value line of this name reads back under the same name (the
// format has no escapes: a quote or a line feed would move the name's end),
// and the longest start of text that keeps its string line within the
// import's line buffer and on one line (a blank line would end the section).
bool ReadsBackAsItself(std::u16string_view name);
std::u16string_view ImportableText(std::u16string_view name, std::u16string_view text);

// A value an export met in a key, and whether the file could carry it.
struct MetValue {
  std::u16string name;
  bool written;
};
// Lines of its own that a whole export adds to a key after its values.
class KeyAddenda {
 public:
  virtual void Write(std::u16string_view path, std::span<const MetValue> met, SettingsTextOutput& out) = 0;

 protected:
  ~KeyAddenda() = default;
};
// The subtree without the export's fixed buffers: every string and DWORD
// value whose line the import can read back (a longer string is cut to fit),
// each key followed by its addenda.
void ExportWholeTree(Registry& registry, std::u16string_view path, KeyAddenda& addenda, SettingsTextOutput& out);
// "\n[name]\n": the blank line and header that open every section.
void WriteSectionHeader(std::u16string_view name, SettingsTextOutput& out);
void WriteCategoriesSection(const CategoryList& categories, SettingsTextOutput& out);
void WriteFiltersSection(const FilterList& filters, SettingsTextOutput& out);
void ExportAll(Registry& registry, std::u16string_view path, const CategoryData& data,
               SettingsTextOutput& out);

// Applies a whole file to the registry and to the lists; 1 for success, 0
// for failure. Not transactional: what was written before a failing line stays.
int ImportSettings(SettingsTextInput& in, Registry& registry, CategoryData& data);

// The same over the "::Categories::" and "::Filters::" sections alone: the
// file's registry sections are passed over.
int ImportLists(SettingsTextInput& in, CategoryData& data);

// The export and import commands over the file in the documents folder. On
// import success the caller reloads the record, saves the category
// attributes, rewrites the filter file, and closes the application.
struct ImportOutcome {
  bool succeeded = false;
  MessagePair message;
};
MessagePair ExportSettingsFile(Registry& registry, FileSystem& files, const CategoryData& data,
                               std::u16string_view documentsFolder);
ImportOutcome ImportSettingsFile(Registry& registry, FileSystem& files, CategoryData& data,
                                 std::u16string_view documentsFolder);

}  // namespace tw
