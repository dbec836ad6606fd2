// The settings export file: sections headed by a registry path below
// HKEY_CURRENT_USER holding "name"="text" and "name"=dword:n lines (signed
// decimal), then the "::Categories::" and "::Filters::" pseudo-sections.
// Schemes are files of the same form.
#pragma once

#include <string_view>

#include "data/categories.h"
#include "data/settings_text.h"
#include "platform/file_system.h"
#include "platform/registry.h"
#include "resources/string_ids.h"

namespace tw {

inline constexpr std::u16string_view kSettingsFileName = u"TW_Settings.txt";
// The whole export as it stood before the last import or scheme rewrote the
// registry; imported under kSettingsFileName it brings every value back.
inline constexpr std::u16string_view kSettingsBackupName = u"TW_Settings.bak";

// The subtree at path, depth first; a missing key is created and exported empty.
void ExportRegistryTree(Registry& registry, std::u16string_view path, SettingsTextOutput& out);
void WriteCategoriesSection(const CategoryList& categories, SettingsTextOutput& out);
void WriteFiltersSection(const FilterList& filters, SettingsTextOutput& out);
void ExportAll(Registry& registry, std::u16string_view path, const CategoryData& data,
               SettingsTextOutput& out);

// Applies a whole file to the registry and to the lists; 1 for success, 0
// for failure. Not transactional: what was written before a failing line stays.
int ImportSettings(SettingsTextInput& in, Registry& registry, CategoryData& data);

// The export and import commands over the file in the documents folder. On
// import success the caller reloads the record, saves the category
// attributes, rewrites the filter file, and closes the application.
struct ImportOutcome {
  bool succeeded = false;
  MessagePair message;
};
MessagePair ExportSettingsFile(Registry& registry, FileSystem& files, const CategoryData& data,
                               std::u16string_view documentsFolder);
// False when the backup could not be written.
bool BackUpSettings(Registry& registry, FileSystem& files, const CategoryData& data,
                    std::u16string_view documentsFolder);
ImportOutcome ImportSettingsFile(Registry& registry, FileSystem& files, CategoryData& data,
                                 std::u16string_view documentsFolder);

}  // namespace tw
