#include "controls/dialog_frame.h"

#include <commctrl.h>

#include <algorithm>

#include "base/scaling.h"
#include "platform/win32/device.h"
#include "resources/resource_ids.h"

namespace tw {
namespace {

// The bar covers the bottom of the screen: the dialog ends where it begins,
// as the main window does, so nothing of the dialog hides behind it.
void EndAboveBar(HWND dialog, HWND bar) {
  RECT window, barArea;
  GetWindowRect(dialog, &window);
  GetWindowRect(bar, &barArea);
  if (barArea.top > window.top)
    SetWindowPos(dialog, nullptr, 0, 0, window.right - window.left, barArea.top - window.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

const BarImages kMenuButtonImages = {IDB_MENU_BUTTONS_16, IDB_MENU_BUTTONS_32, RGB(222, 207, 198)};

bool DoubleSizePictures() { return ScaleX(1) >= 2; }

HBRUSH WhiteBackground(HDC dc) {
  SetBkColor(dc, RGB(255, 255, 255));
  return static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
}

void MakeFullScreenDialog(HWND dialog, HINSTANCE resources, HMODULE language, UINT textCommand, UINT textId,
                          const BarImages& barImages) {
  device::InitFullScreenDialog(dialog);
  device::ShowInputPanel(false);
  HWND bar = device::CreateMenuBar(dialog, nullptr, 0);
  if (bar == nullptr) return;
  device::SetMenuBarImages(bar, resources, DoubleSizePictures() ? barImages.large : barImages.small, barImages.mask);
  std::wstring text = textId != 0 ? LanguageString(language, textId) : L"";
  if (textId != 0) {
    TBBUTTON textButton = {I_IMAGENONE, static_cast<int>(textCommand), TBSTATE_ENABLED, BTNS_BUTTON, {}, 0,
                           reinterpret_cast<INT_PTR>(text.c_str())};
    SendMessageW(bar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&textButton));
  }
  const TBBUTTON images[] = {
      {0, IDM_CANCEL, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, -1},
      {1, IDOK, TBSTATE_ENABLED, BTNS_BUTTON, {}, 0, -1},
  };
  SendMessageW(bar, TB_ADDBUTTONSW, 2, reinterpret_cast<LPARAM>(images));
  EndAboveBar(dialog, bar);
}

std::wstring LanguageString(HMODULE language, UINT id) {
  wchar_t text[1024] = {};
  int length = language ? LoadStringW(language, id, text, 1024) : 0;
  return std::wstring(text, length > 0 ? length : 0);
}

void SetItemLanguageText(HWND dialog, int item, HMODULE language, UINT id) {
  SetDlgItemTextW(dialog, item, LanguageString(language, id).c_str());
}

void PlaceItem(HWND dialog, int item, int left, int top, int right, int bottom) {
  SetWindowPos(GetDlgItem(dialog, item), nullptr, left, top, std::max(right - left, 0), std::max(bottom - top, 0),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

int ShowLanguageMessage(HWND owner, HMODULE language, UINT textId, UINT captionId, UINT buttons) {
  return device::ShowMessageBox(owner, LanguageString(language, textId).c_str(),
                                LanguageString(language, captionId).c_str(), buttons);
}

// Loaded when a dialog first needs it: at start-up it would cost Wine
// the loading of comctl32 for nothing.
bool LoadCommonControls(DWORD classes) {
  using Init = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
  static const auto init = [] {
    HMODULE library = LoadLibraryW(L"comctl32.dll");
    return library ? reinterpret_cast<Init>(reinterpret_cast<void*>(GetProcAddress(library, "InitCommonControlsEx")))
                   : nullptr;
  }();
  INITCOMMONCONTROLSEX controls = {sizeof controls, classes};
  return init != nullptr && init(&controls);
}

bool OnFrameMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, INT_PTR& result) {
  switch (message) {
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC:
      result = reinterpret_cast<INT_PTR>(WhiteBackground(reinterpret_cast<HDC>(wParam)));
      return true;
    case WM_SETTINGCHANGE:
      device::HandleSettingChange(dialog, wParam, lParam);
      result = TRUE;
      return true;
  }
  return false;
}

}  // namespace tw
