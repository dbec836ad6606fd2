#include "controls/plugin_chooser.h"

#include <algorithm>
#include <vector>

#include "base/scaling.h"
#include "controls/dialog_frame.h"
#include "data/hosted_tabs.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"

namespace tw {
namespace {

constexpr unsigned kExplanationText = 40837, kPluginLabelText = 40838;
// The chooser's menu bar buttons are drawn on a mask of their own.
constexpr BarImages kChooserImages = {IDB_CHOOSER_BUTTONS_16, IDB_CHOOSER_BUTTONS_32, RGB(222, 208, 198)};

// Layout in 96-dpi units: the explanation, as high as its lines, then the
// label and the drop-down.
constexpr int kMargin = 6, kGap = 8, kLabelHeight = 16, kListHeight = 22, kDroppedHeight = 120;

struct ChooserState {
  HINSTANCE resources;
  HMODULE language;
  Registry& registry;
  std::u16string& chosen;
  std::vector<PluginChoice> plugins;
};

int WrappedHeight(HWND item, int width) {
  std::wstring text(GetWindowTextLengthW(item) + 1, L'\0');
  text.resize(GetWindowTextW(item, text.data(), int(text.size())));
  HDC dc = GetDC(item);
  HGDIOBJ oldFont = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(item, WM_GETFONT, 0, 0)));
  RECT area = {0, 0, width, 0};
  DrawTextW(dc, text.c_str(), int(text.size()), &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(dc, oldFont);
  ReleaseDC(item, dc);
  return area.bottom;
}

void OnSize(HWND dialog) {
  RECT client;
  GetClientRect(dialog, &client);
  int left = ScaleX(kMargin), right = client.right - ScaleX(kMargin);
  int top = ScaleY(kMargin);
  int textBottom = top + WrappedHeight(GetDlgItem(dialog, IDC_PLUGIN_TEXT), right - left);
  PlaceItem(dialog, IDC_PLUGIN_TEXT, left, top, right, textBottom);
  int labelTop = textBottom + ScaleY(kGap);
  PlaceItem(dialog, IDC_PLUGIN_LABEL, left, labelTop, right, labelTop + ScaleY(kLabelHeight));
  int listTop = labelTop + ScaleY(kLabelHeight);
  PlaceItem(dialog, IDC_PLUGIN_LIST, left, listTop, right, listTop + ScaleY(kListHeight + kDroppedHeight));
}

INT_PTR OnInitDialog(HWND dialog, ChooserState& state) {
  SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&state));
  SetWindowTextW(dialog, LanguageString(state.language, kAskHidePlugin.caption).c_str());
  MakeFullScreenDialog(dialog, state.resources, state.language, 0, 0, kChooserImages);
  SetItemLanguageText(dialog, IDC_PLUGIN_TEXT, state.language, kExplanationText);
  SetItemLanguageText(dialog, IDC_PLUGIN_LABEL, state.language, kPluginLabelText);
  OnSize(dialog);
  HWND list = GetDlgItem(dialog, IDC_PLUGIN_LIST);
  for (const PluginChoice& plugin : state.plugins)
    SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(plugin.name).c_str()));
  SendMessageW(list, CB_SETCURSEL, 0, 0);
  return TRUE;
}

// A plug-in still on the Today screen would show twice: the user may switch
// it off there, or keep it and add nothing.
void OnDone(HWND dialog, ChooserState& state) {
  LRESULT position = SendDlgItemMessageW(dialog, IDC_PLUGIN_LIST, CB_GETCURSEL, 0, 0);
  if (position < 0 || static_cast<std::size_t>(position) >= state.plugins.size()) {
    EndDialog(dialog, 0);
    return;
  }
  const std::u16string& name = state.plugins[position].name;
  if (IsPluginEnabled(state.registry, name)) {
    if (ShowLanguageMessage(dialog, state.language, kAskHidePlugin.text, kAskHidePlugin.caption, MB_YESNO) !=
        IDYES) {
      EndDialog(dialog, 0);
      return;
    }
    DisablePlugin(state.registry, name);
    RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    device::TellTodayItemsChanged();
  }
  state.chosen = name;
  EndDialog(dialog, 1);
}

INT_PTR OnMessage(HWND dialog, ChooserState& state, UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_COMMAND:
      switch (LOWORD(wParam)) {
        case IDOK:
          OnDone(dialog, state);
          return TRUE;
        case IDM_CANCEL:
        case IDCANCEL:
          EndDialog(dialog, 0);
          return TRUE;
      }
      return FALSE;
    case WM_SIZE:
      OnSize(dialog);
      return TRUE;
  }
  return FALSE;
}

}  // namespace

int ChoosePlugin(HWND owner, HINSTANCE resources, HMODULE language, Registry& registry, std::u16string& chosen) {
  ChooserState state = {resources, language, registry, chosen, ListTodayPlugins(registry)};
  INT_PTR result = DialogBoxParamW(resources, MAKEINTRESOURCEW(IDD_PLUGIN_CHOOSER), owner,
                                   FrameDialogProc<ChooserState, OnInitDialog, OnMessage>,
                                   reinterpret_cast<LPARAM>(&state));
  return result == 1 ? 1 : 0;
}

}  // namespace tw
