#include "data/icon_sets.h"

#include <algorithm>

#include "base/text.h"
#include "settings/registry_values.h"

namespace tw {
namespace {

constexpr std::u16string_view kIconSetValues[] = {u"InstallPath24", u"InstallPath18", u"InstallPath12",
                                                  u"InstallPathBlank"};

std::u16string_view WithoutTrailingBackslash(std::u16string_view folder) {
  return folder.ends_with(u'\\') ? folder.substr(0, folder.size() - 1) : folder;
}

void ScanFolder(FileSystem& files, const std::u16string& folder, std::vector<std::u16string>& found) {
  std::u16string_view listed = WithoutTrailingBackslash(folder);
  for (const DirectoryEntry& entry : files.List(listed, u"*.*"))
    if (entry.IsDirectory() && !entry.name.empty()) ScanFolder(files, folder + entry.name + u"\\", found);
  for (const DirectoryEntry& entry : files.List(listed, u"*.bmp"))
    if (!entry.IsDirectory()) found.push_back(folder + entry.name);
}

bool PathLess(const std::u16string& a, const std::u16string& b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char16_t x, char16_t y) { return AsciiLower(x) < AsciiLower(y); });
}

}  // namespace

std::vector<std::u16string> IconFolders(Registry& registry, std::u16string_view installFolder,
                                        std::u16string_view additionalIconsFolder) {
  std::vector<std::u16string> folders;
  auto add = [&](std::u16string_view folder) {
    if (!folder.empty()) folders.push_back(std::u16string(folder) + u"\\");
  };
  add(FormatText(u"%s\\Icons", {installFolder}, WideString::kMaxLength));
  add(additionalIconsFolder);
  ScopedKey key(registry, kCurrentUser, kIconSetKey, false);
  for (std::u16string_view name : kIconSetValues) {
    WideString folder;
    ReadString(registry, name, folder, u"", key.get());
    add(folder.View());
  }
  return folders;
}

std::vector<std::u16string> ScanIconFolders(FileSystem& files, const std::vector<std::u16string>& folders) {
  std::vector<std::u16string> found;
  for (const std::u16string& folder : folders) ScanFolder(files, folder, found);
  std::stable_sort(found.begin(), found.end(), PathLess);
  return found;
}

IconChoice::IconChoice(std::u16string_view iconsFolder, CategoryEntry& category)
    : category_(category),
      categoryFile_(CategoryBitmapPath(iconsFolder, category.name.View())),
      chosen_(categoryFile_) {}

void IconChoice::Choose(std::u16string_view path, Bitmaps& bitmaps) {
  chosen_ = path;
  category_.bitmap = Bitmap(bitmaps, bitmaps.Load(path));
}

void IconChoice::ChooseNone() {
  chosen_.clear();
  category_.bitmap.Reset();
}

void IconChoice::Finish(FileSystem& files) {
  if (chosen_ == categoryFile_) return;
  files.Delete(categoryFile_);
  // The picture shown must be the file the Today item will read: none when
  // the copy failed.
  if (!chosen_.empty() && !files.Copy(chosen_, categoryFile_, false)) category_.bitmap.Reset();
}

}  // namespace tw
