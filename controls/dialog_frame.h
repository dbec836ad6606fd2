// What the modal dialogs that pages open share: the device's full-screen
// frame with Done above and the menu bar (Cancel, Done and, where asked, a
// text button) below, their texts from the language library, and the
// common controls, which the program loads only when a dialog needs them.
#pragma once

#include <windows.h>

#include <string>

namespace tw {

// The dialog fills the screen between the title strip and a new menu bar
// whose image buttons send 40019 (cancel) and 1 (Done). A text button for
// `textCommand` is added first when textId is not 0.
void MakeFullScreenDialog(HWND dialog, HINSTANCE resources, HMODULE language, UINT textCommand = 0,
                          UINT textId = 0);

// The text of a language library string; empty when it is missing.
std::wstring LanguageString(HMODULE language, UINT id);
void SetItemLanguageText(HWND dialog, int item, HMODULE language, UINT id);
// An OK-only message box whose text and caption come from the library.
void ShowLanguageMessage(HWND owner, HMODULE language, UINT textId, UINT captionId);

// InitCommonControlsEx for the given classes; false when comctl32 is missing.
bool LoadCommonControls(DWORD classes);

// The white of the device's dialogs, for WM_CTLCOLORDLG and WM_CTLCOLORSTATIC.
HBRUSH WhiteBackground(HDC dc);

// The messages every full-screen dialog answers alike: the white background
// and the device's setting changes. True, with the dialog procedure's
// result, when the message was one of them.
bool OnFrameMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result);

// Whether pictures come at their double (32-pixel) size.
bool DoubleSizePictures();

}  // namespace tw
