// Icon sets: every .bmp in the known icon folders, offered for a category;
// the chosen file is copied under the category's name, so each category owns
// a private copy and never refers to an icon file in place.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/categories.h"
#include "platform/bitmaps.h"
#include "platform/file_system.h"
#include "platform/registry.h"

namespace tw {

inline constexpr std::u16string_view kIconSetKey = u"Software\\Orvex\\Tidewell\\IconSet";

// Folders scanned, each ending in a backslash: the installation's Icons
// folder, the additional icons folder, then those an installed icon set
// recorded. Empty ones are left out.
std::vector<std::u16string> IconFolders(Registry& registry, std::u16string_view installFolder,
                                        std::u16string_view additionalIconsFolder);
// Full paths of the .bmp files found (sub-folders first, recursively),
// ordered by path without regard to case; equal paths keep scan order.
std::vector<std::u16string> ScanIconFolders(FileSystem& files, const std::vector<std::u16string>& folders);

// One run of the icon chooser for a category.
class IconChoice {
 public:
  IconChoice(std::u16string_view iconsFolder, CategoryEntry& category);

  // The category shows the chosen icon at once.
  void Choose(std::u16string_view path, Bitmaps& bitmaps);
  void ChooseNone();
  // When the chooser closes: unless the choice is the category's own file,
  // that file is deleted and the chosen one (if any) copied in its place;
  // a failed copy leaves the category without a bitmap.
  void Finish(FileSystem& files);

  const std::u16string& CategoryFile() const { return categoryFile_; }
  const std::u16string& Chosen() const { return chosen_; }

 private:
  CategoryEntry& category_;
  std::u16string categoryFile_;
  std::u16string chosen_;
};

}  // namespace tw
