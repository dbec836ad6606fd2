#include "data/schemes.h"

#include "data/settings_file.h"

namespace tw {
namespace {

constexpr std::u16string_view kExtension = u".scm";

std::u16string SchemesFolder(std::u16string_view installFolder) {
  return FormatText(u"%s\\Schemes", {installFolder}, WideString::kMaxLength);
}

std::u16string SchemePath(std::u16string_view installFolder, std::u16string_view fileName) {
  return FormatText(u"%s\\%s", {SchemesFolder(installFolder), fileName}, WideString::kMaxLength);
}

}  // namespace

std::vector<std::u16string> ListSchemes(FileSystem& files, std::u16string_view installFolder) {
  std::vector<std::u16string> names;
  for (const DirectoryEntry& entry : files.List(SchemesFolder(installFolder), u"*.scm"))
    if (!entry.IsDirectory()) names.push_back(entry.name);
  return names;
}

MessagePair SaveScheme(Registry& registry, FileSystem& files, const CategoryList& categories,
                       std::u16string_view installFolder, std::u16string_view name) {
  name = name.substr(0, kMaxSchemeName);
  if (name.empty()) return kSchemeNameEmpty;
  std::u16string path = SchemePath(installFolder, std::u16string(name) + std::u16string(kExtension));
  if (files.Exists(path)) return kSchemeExists;
  files.MakeDirectory(SchemesFolder(installFolder));
  SettingsTextOutput out;
  ExportRegistryTree(registry, kColorsKey.path, out);
  ExportRegistryTree(registry, kFontsKey.path, out);
  WriteCategoriesSection(categories, out);
  files.WriteAll(path, out.Bytes().data(), out.Bytes().size());
  return kSchemeSaved;
}

bool DeleteScheme(FileSystem& files, std::u16string_view installFolder, std::u16string_view fileName) {
  return files.Delete(SchemePath(installFolder, fileName));
}

MessagePair LoadScheme(Registry& registry, FileSystem& files, CategoryData& data,
                       std::u16string_view installFolder, std::u16string_view fileName) {
  std::vector<std::uint8_t> bytes;
  if (fileName.empty() || !files.ReadAll(SchemePath(installFolder, fileName), bytes)) return kSchemeCannotOpen;
  registry.DeleteTree(kCurrentUser, kColorsKey.path);
  registry.DeleteTree(kCurrentUser, kFontsKey.path);
  SettingsTextInput in = SettingsTextInput::FromBytes(bytes);
  return ImportSettings(in, registry, data) ? kNoMessage : kSchemeLoadFailed;
}

}  // namespace tw
