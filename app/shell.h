// The program-wide state of the settings application: the one settings
// record, the category and filter lists, the page slots and the handles of
// the main window and its libraries. Everything runs on the one UI thread.
#pragma once

#include <windows.h>

#include <array>
#include <memory>

#include "app/page_table.h"
#include "base/wide_string.h"
#include "data/categories.h"
#include "pages/category_list_view.h"
#include "pages/filter_panel.h"
#include "pages/preview_cache.h"
#include "pages/settings_page.h"
#include "platform/win32/win32_bitmaps.h"
#include "platform/win32/win32_database.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_locale.h"
#include "platform/win32/win32_registry.h"
#include "platform/win32/startup_trace.h"
#include "resources/string_ids.h"
#include "settings/settings_io.h"
#include "settings/settings_store.h"

namespace tw {

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
  // Slots 10 and 11 hold no page: these two are made at start-up and shown
  // and hidden in place.
  std::unique_ptr<CategoryListView> categoryList;
  std::unique_ptr<FilterPanel> filterPanel;
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
  trace::TracedRegistry tracedRegistry{registry};
  Win32Locale locale;
  Win32FileSystem files;
  Win32ObjectStore database;
  Win32Bitmaps bitmaps;

  // The settings load and save on the window's screen, with the skin reader.
  SettingsEnvironment Environment();
  CategoryPlatform Categories() { return {ActiveRegistry(), locale, files, database, bitmaps}; }
  // The registry counted by the start-up trace when it is on.
  Registry& ActiveRegistry();
};
ShellPlatform& Platform();

PreviewFontCache& PreviewFonts();
PreviewImageSet& PreviewImages();


// A text of the current language library (empty when there is none).
WideString LanguageText(unsigned id);
// A message box of a language text and caption; returns the button chosen.
int ShowMessage(HWND owner, MessagePair message, UINT buttons);

}  // namespace tw
