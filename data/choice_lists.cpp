#include "data/choice_lists.h"

#include "base/wide_string.h"

namespace tw {
namespace {

constexpr int kLanguageNameChars = 256;

// The library's own language name, empty when it cannot be had.
std::u16string LanguageName(LibraryLoader& loader, std::u16string_view path) {
  auto library = loader.Load(path);
  if (!library) return {};
  char16_t name[kLanguageNameChars];
  int length = library->Lookup(kLanguageNameText, name, kLanguageNameChars);
  return std::u16string(name, length > 0 ? length : 0);
}

}  // namespace

LanguageChoices ListLanguages(FileSystem& files, LibraryLoader& loader, std::u16string_view installFolder,
                              std::u16string_view selectedLibrary) {
  LanguageChoices choices;
  std::u16string folder = FormatText(u"%s\\LangRes", {installFolder}, WideString::kMaxLength);
  int selectedPosition = 0;
  std::int32_t position = 0;
  for (const DirectoryEntry& file : files.List(folder, u"*.dll")) {
    std::u16string path = FormatText(u"%s\\LangRes\\%s", {installFolder, file.name}, WideString::kMaxLength);
    std::u16string name = LanguageName(loader, path);
    if (!name.empty()) {
      if (path == selectedLibrary) selectedPosition = position;
      choices.paths.resize(position + 1);
      choices.paths[position] = path;
      choices.list.entries.push_back({name, position});
    }
    ++position;
  }
  if (selectedPosition < static_cast<int>(choices.list.entries.size())) choices.list.selected = selectedPosition;
  return choices;
}

ChoiceList ListSkins(FileSystem& files, std::u16string_view skinsFolder, std::u16string_view currentSkin) {
  ChoiceList skins;
  std::int32_t count = 0;
  for (const DirectoryEntry& entry : files.List(skinsFolder, u"*.*")) {
    if (!entry.plainFolder) continue;
    if (entry.name == currentSkin) skins.selected = static_cast<int>(skins.entries.size());
    skins.entries.push_back({entry.name, count++});
  }
  if (skins.entries.empty()) skins.entries.push_back({u"Default", 0});
  return skins;
}

ChoiceList ListFontFaces(const std::vector<std::u16string>& faces, std::u16string_view currentFace) {
  ChoiceList list;
  for (const std::u16string& face : faces) {
    if (list.selected < 0 && face == currentFace) list.selected = static_cast<int>(list.entries.size());
    list.entries.push_back({face, static_cast<std::int32_t>(list.entries.size())});
  }
  return list;
}

}  // namespace tw
