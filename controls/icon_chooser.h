// The icon chooser: every bitmap of the icon folders in a scrolling list,
// one to give to a category or none. When it closes, the category's own
// file is replaced by a copy of the chosen one (or deleted).
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "data/categories.h"
#include "platform/bitmaps.h"
#include "platform/file_system.h"

namespace tw {

struct IconChooserSetup {
  HINSTANCE resources;
  HMODULE language;
  HMODULE pictures;              // the scroller's built-in pictures
  std::u16string_view skinFolder;
  std::u16string_view iconsFolder;  // where the category's own copy lives
  std::vector<std::u16string> iconFolders;  // scanned, each ending in a backslash
  FileSystem& files;
  Bitmaps& bitmaps;
};

// Runs the chooser modally over `owner` for `category`.
void RunIconChooser(HWND owner, const IconChooserSetup& setup, CategoryEntry& category);

// An icon centred in `cell` at the screen's scale, shrunk to fit if larger,
// its pure green left out; nothing for null.
void DrawBitmapInCell(HDC dc, HBITMAP bitmap, const RECT& cell);

}  // namespace tw
