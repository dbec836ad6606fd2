// The main window: start-up, the window procedure and its handlers, the page
// slots and the shell's commands. One file per job: startup.cpp,
// main_window.cpp, page_slots.cpp, commands.cpp.
#pragma once

#include <windows.h>

#include "pages/settings_page.h"

namespace tw {

// The registered message that tells the Today item to reload.
inline constexpr wchar_t kSettingsChangedMessage[] = L"TidewellSettingsChanged";

// WinMain's work: start page from the command line, instance set-up, the
// message loop. Returns the exit code.
int RunSettingsProgram(HINSTANCE instance, const wchar_t* commandLine, int showCommand);
// "About" in any case selects the about page, anything else the first page.
int StartPageFor(const wchar_t* commandLine);
// Creates and shows the main window on the start page. Null when another
// instance was brought to the front instead, or the window failed.
HWND InitInstance(HINSTANCE instance, int startPage, int showCommand);

LRESULT CALLBACK MainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// page_slots.cpp
// What a page of the main window is made with.
PageContext MakePageContext();
void ShowPage(int index, int showCommand);
// The category list or the filter panel for slots 10 and 11, else null.
SettingsPage* InPlaceView(int index);
// What the current slot shows: its page object or its in-place view.
SettingsPage* ShownPage();
void SwitchPage(int index);
// Every page object in the order Done and window destruction use.
void DestroyPages();

// commands.cpp
LRESULT OnMainCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void FreeLanguageLibrary();
// Whether a backup lies beside the settings file for Undo to restore.
bool CanUndoRewrite();
// Saving and applying schemes for the Colours page.
const SchemeHooks& PageSchemeHooks();

}  // namespace tw
