// The program-wide state of the settings application: the one settings
// record, the category and filter lists, the page slots and the handles of
// the main window and its libraries. Everything runs on the one UI thread.
#pragma once

#include <windows.h>

#include <array>
#include <memory>

#include "base/wide_string.h"
#include "data/categories.h"
#include "pages/preview_cache.h"
#include "pages/settings_page.h"
#include "platform/win32/win32_bitmaps.h"
#include "platform/win32/win32_database.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_locale.h"
#include "platform/win32/win32_registry.h"
#include "settings/settings_io.h"
#include "settings/settings_store.h"

namespace tw {

inline constexpr int kPageCount = 13;
inline constexpr int kFirstPage = 0;
inline constexpr int kFontsPage = 6;
inline constexpr int kCategoryListPage = 10;
inline constexpr int kFilterPanelPage = 11;
inline constexpr int kAboutPage = 12;
// The header band above every page, in 96-dpi units; a 1-unit line follows it.
inline constexpr int kHeaderBand = 27;

struct ShellState {
  HINSTANCE instance = nullptr;
  HWND mainWindow = nullptr;
  HMODULE pictures = nullptr;
  HMODULE language = nullptr;
  HFONT normalFont = nullptr;
  HFONT boldFont = nullptr;
  HWND selector = nullptr;
  HWND menuBar = nullptr;
  UINT settingsChangedMessage = 0;
  int currentPage = kFirstPage;
  std::array<std::unique_ptr<SettingsPage>, kPageCount> slots;
  // Dots per inch are read once per process; a test may set them first.
  bool screenKnown = false;
  RECT windowRect = {};
  RECT clientRect = {};
};

ShellState& Shell();
SettingsStore& Settings();
CategoryData& Categories();

// The real platform behind the record and the lists.
struct ShellPlatform {
  Win32Registry registry;
  Win32Locale locale;
  Win32FileSystem files;
  Win32ObjectStore database;
  Win32Bitmaps bitmaps;

  SettingsEnvironment Environment() { return {registry, locale, files}; }
  CategoryPlatform Categories() { return {registry, locale, files, database, bitmaps}; }
};
ShellPlatform& Platform();

PreviewFontCache& PreviewFonts();
PreviewImageSet& PreviewImages();

// A text of the current language library (empty when there is none).
WideString LanguageText(unsigned id);
// A message box of two language texts; returns the button chosen.
int ShowMessage(HWND owner, unsigned text, unsigned caption, UINT buttons);

}  // namespace tw
