// The Pocket PC on a desktop: the screen the program believes it runs on and
// the pieces of the device's shell (aygshell) that a desktop lacks. The
// application calls these exactly where the device calls aygshell.
//
// The device screen is a rectangle at the top left of the desktop: the title
// strip (26 units) at its top, the menu bar (26 units) at its bottom and the
// full-screen window between them. Its size comes from TIDEWELL_SCREEN
// ("240x320", "320x240" or "480x640"); without it, a portrait 240 x 320
// screen times the desktop's dots per inch / 96.
#pragma once

#include <windows.h>

#include <string>

namespace tw::device {

// The extended style that gives a window the title strip's OK button, which
// sends it command 1 (IDOK). Not a desktop style bit: the stand-in strips it.
inline constexpr DWORD kExCaptionOkButton = 0x80000000;
// Asks a menu bar for the menu it was built from.
inline constexpr UINT kMenuBarGetMenu = WM_USER + 402;

struct ScreenGeometry {
  int width = 240;
  int height = 320;
  int strip = 26;  // title strip and menu bar height in pixels

  RECT MenuBar() const { return {0, height - strip, width, height}; }
  // Where a full-screen window goes by default: below the title strip.
  RECT Work() const { return {0, strip, width, height}; }
};

// Parses "WxH"; false for anything else.
bool ParseScreenSize(const wchar_t* text, int& width, int& height);
// The geometry for a screen of the given dots per inch: TIDEWELL_SCREEN when
// set and valid, else portrait 240 x 320 scaled by dpi / 96.
ScreenGeometry ScreenFor(int dpi);
// The geometry every stand-in uses; set once at start-up (tests change it).
ScreenGeometry& Screen();

// CreateWindowExW of a top-level window as the device makes it: positions
// left to the default take the work area; kExCaptionOkButton gives the
// window a title strip with OK above it. Styles without a desktop meaning are dropped.
HWND CreateFullScreenWindow(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style,
                            HINSTANCE instance, void* parameter);

// SHCreateMenuBar with a plain menu resource: a bar along the bottom of the
// screen owned by `owner`, with one button per top-level popup of the menu
// (menu 0: none). The bar answers kMenuBarGetMenu, TB_ADDBUTTONS for its
// image and text buttons, whose commands go to the owner, and TB_GETRECT.
// Null when the menu cannot be loaded.
HWND CreateMenuBar(HWND owner, HINSTANCE menuModule, UINT menuId);
// The bar's image list: a bitmap resource of square cells side by side, one
// colour transparent (ImageList_LoadImage with a mask colour and
// TB_SETIMAGELIST on the device). The bar keeps the bitmap.
bool SetMenuBarImages(HWND bar, HINSTANCE module, UINT bitmapId, COLORREF mask);
// The side of the bar's image cells; 0 without images.
int MenuBarImageSize(HWND bar);

// SHInitDialog with full-screen and Done: the dialog fills the work area and
// gets a title strip above it whose OK sends it IDOK.
bool InitFullScreenDialog(HWND dialog);

// MessageBoxW shown where the device shows it: centred on the device screen.
int ShowMessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT type);

// Gives a window the title strip along its top edge: its title and the OK
// button, which sends it IDOK. The window grows upwards by the strip; its
// client area keeps its place and size. Once per window.
bool AttachTitleStrip(HWND window);

// RegisterClassW as the device has it: one icon per class. The desktop would
// otherwise load a small copy of the icon, at a cost larger than the class's.
bool RegisterWindowClass(const WNDCLASSW& windowClass);

// SetForegroundWindow of a handle with its low bit set: the device's way of
// bringing a window forward together with the windows it owns.
void BringToFront(HWND window);

// The input panel calls: a desktop has no soft keyboard.
inline void ShowInputPanel(bool) {}
inline void HandleActivate(HWND, WPARAM, LPARAM) {}
inline void HandleSettingChange(HWND, WPARAM, LPARAM) {}

// WM_SETTINGCHANGE with wParam 0xF2 to the desktop window: the Today screen
// reloads its items (after a rewrite of the registry, or a plug-in switched off).
void TellTodayItemsChanged();

// Device paths have no drive: they resolve against the current drive, which
// is made the system drive (C: of a Wine prefix), where the device's files lie.
void EnterDeviceFileSystem();

// SHGetSpecialFolderPath(CSIDL_PERSONAL): "My Documents" at the root of the
// device's drive, made if missing. Empty when it cannot be had as a real folder.
std::wstring DocumentsFolder();

}  // namespace tw::device
