// What the modal dialogs that pages open share: the device's full-screen
// frame with Done above and the menu bar (Cancel, Done and, where asked, a
// text button) below, their texts from the language library, and the
// common controls, which the program loads only when a dialog needs them.
#pragma once

#include <windows.h>

#include <string>

namespace tw {

// The menu bar's two image buttons (cancel, Done): a bitmap of 16-pixel
// cells and one of 32-pixel cells, on a mask colour.
struct BarImages {
  UINT small;
  UINT large;
  COLORREF mask;
};
extern const BarImages kMenuButtonImages;

// The dialog fills the screen between the title strip and a new menu bar
// whose image buttons send 40019 (cancel) and 1 (Done). A text button for
// `textCommand` is added first when textId is not 0.
void MakeFullScreenDialog(HWND dialog, HINSTANCE resources, HMODULE language, UINT textCommand = 0,
                          UINT textId = 0, const BarImages& images = kMenuButtonImages);

// The text of a language library string; empty when it is missing.
std::wstring LanguageString(HMODULE language, UINT id);
void SetItemLanguageText(HWND dialog, int item, HMODULE language, UINT id);
// Moves a dialog's item to the box from (left, top) to (right, bottom); an
// upside-down box gives the item no size rather than a huge one.
void PlaceItem(HWND dialog, int item, int left, int top, int right, int bottom);
// A message box whose text and caption come from the library; returns the button chosen.
int ShowLanguageMessage(HWND owner, HMODULE language, UINT textId, UINT captionId, UINT buttons = MB_OK);

// InitCommonControlsEx for the given classes; false when comctl32 is missing.
bool LoadCommonControls(DWORD classes);

// The white of the device's dialogs, for WM_CTLCOLORDLG and WM_CTLCOLORSTATIC.
HBRUSH WhiteBackground(HDC dc);

// The messages every full-screen dialog answers alike: the white background
// and the device's setting changes. True, with the dialog procedure's
// result, when the message was one of them.
bool OnFrameMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result);

// The procedure of a full-screen dialog whose state the caller hands over
// with WM_INITDIALOG (Init keeps it in DWLP_USER): nothing reaches Handle
// before that, and the frame's own messages are answered first.
template <typename State, INT_PTR (*Init)(HWND, State&),
          INT_PTR (*Handle)(HWND, State&, UINT, WPARAM, LPARAM)>
INT_PTR CALLBACK FrameDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) return Init(dialog, *reinterpret_cast<State*>(lParam));
  auto* state = reinterpret_cast<State*>(GetWindowLongPtrW(dialog, DWLP_USER));
  if (state == nullptr) return FALSE;
  if (INT_PTR result; OnFrameMessage(dialog, message, wParam, lParam, result)) return result;
  return Handle(dialog, *state, message, wParam, lParam);
}

// Whether pictures come at their double (32-pixel) size.
bool DoubleSizePictures();

}  // namespace tw
