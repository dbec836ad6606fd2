// What the General page offers: the installed language libraries by their
// own names and the skin folders.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/library_loader.h"
#include "resources/string_ids.h"

namespace tw {

struct ChoiceEntry {
  std::u16string text;
  std::int32_t itemData = 0;
};

struct ChoiceList {
  std::vector<ChoiceEntry> entries;
  int selected = -1;  // index into entries; -1 for none
};

struct LanguageChoices {
  ChoiceList list;
  // Full path of each offered library, indexed by item data (the library's
  // position among all the .dll files found, offered or not).
  std::vector<std::u16string> paths;
};

// Libraries without their language name text, or that fail to load, are not offered but
// still count. The entry at the index equal to the selected library's
// position is selected (0 when none matched), so a skipped library before
// the selected one moves the selection to a later entry.
LanguageChoices ListLanguages(FileSystem& files, LibraryLoader& loader, std::u16string_view installFolder,
                              std::u16string_view selectedLibrary);

// Every plain folder in the skins folder (attributes exactly "directory"),
// item data its enumeration count; the one named like the current skin
// selected. No folder gives "Default" alone.
ChoiceList ListSkins(FileSystem& files, std::u16string_view skinsFolder, std::u16string_view currentSkin);

// The device's font faces as enumerated, duplicates kept; the entry equal to
// the current face (exactly) selected, none when it is not installed.
ChoiceList ListFontFaces(const std::vector<std::u16string>& faces, std::u16string_view currentFace);

}  // namespace tw
