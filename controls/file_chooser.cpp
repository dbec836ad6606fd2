// The chooser's window over the portable folder walk: one procedure, one
// handler per message, state in DWLP_USER while the dialog is open.
#include "controls/file_chooser.h"

#include <algorithm>
#include <string>

#include "base/scaling.h"
#include "controls/dialog_frame.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"

namespace tw {
namespace {

// Layout in 96-dpi units: the label, the path with Up beside it, the list below.
constexpr int kMargin = 4, kLabelHeight = 14, kPathTop = 20, kPathHeight = 20, kUpWidth = 40, kListTop = 44;

struct ChooserState {
  HINSTANCE resources;
  HMODULE language;
  FolderBrowser browser;
  wchar_t* path;
  std::size_t capacity;
};


// A folder's row ends in a backslash, as its path would.
std::wstring RowText(const BrowseEntry& entry) { return ToWide(entry.name) + (entry.isFolder ? L"\\" : L""); }

void ShowFolder(HWND dialog, const ChooserState& state) {
  const FolderBrowser& browser = state.browser;
  SetDlgItemTextW(dialog, IDC_CHOOSER_PATH, ToWide(browser.Folder()).c_str());
  EnableWindow(GetDlgItem(dialog, IDC_CHOOSER_UP), !browser.AtRoot());
  HWND list = GetDlgItem(dialog, IDC_CHOOSER_LIST);
  SendMessageW(list, WM_SETREDRAW, FALSE, 0);
  SendMessageW(list, LB_RESETCONTENT, 0, 0);
  for (const BrowseEntry& entry : browser.Entries())
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(RowText(entry).c_str()));
  SendMessageW(list, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list, nullptr, TRUE);
}

void RefuseTooLong(HWND dialog, const ChooserState& state) {
  ShowLanguageMessage(dialog, state.language, kTextPathTooLong, kTextPathTooLongCaption);
}

void OnSize(HWND dialog) {
  RECT client;
  GetClientRect(dialog, &client);
  int left = ScaleX(kMargin), right = client.right - ScaleX(kMargin), upLeft = right - ScaleX(kUpWidth);
  PlaceItem(dialog, IDC_CHOOSER_LABEL, left, ScaleY(kMargin), right, ScaleY(kMargin + kLabelHeight));
  PlaceItem(dialog, IDC_CHOOSER_PATH, left, ScaleY(kPathTop), upLeft - ScaleX(kMargin), ScaleY(kPathTop + kPathHeight));
  PlaceItem(dialog, IDC_CHOOSER_UP, upLeft, ScaleY(kPathTop), right, ScaleY(kPathTop + kPathHeight));
  PlaceItem(dialog, IDC_CHOOSER_LIST, left, ScaleY(kListTop), right, client.bottom - ScaleY(kMargin));
}

INT_PTR OnInitDialog(HWND dialog, ChooserState& state) {
  SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&state));
  bool files = state.browser.Target() == BrowseFor::File;
  SetWindowTextW(dialog, LanguageString(state.language, files ? kTextChooseFile : kTextChooseFolder).c_str());
  MakeFullScreenDialog(dialog, state.resources, state.language);
  SetItemLanguageText(dialog, IDC_CHOOSER_LABEL, state.language, kTextFolderLabel);
  SetItemLanguageText(dialog, IDC_CHOOSER_UP, state.language, kTextFolderUp);
  SendDlgItemMessageW(dialog, IDC_CHOOSER_PATH, EM_SETREADONLY, TRUE, 0);
  OnSize(dialog);
  // The start is read within the buffer, terminated or not.
  std::size_t length = std::find(state.path, state.path + state.capacity, L'\0') - state.path;
  state.browser.Start(std::u16string_view(AsU16(state.path), length));
  ShowFolder(dialog, state);
  SetFocus(GetDlgItem(dialog, IDC_CHOOSER_LIST));  // the list is what a user works in
  return FALSE;
}

const BrowseEntry* SelectedEntry(HWND dialog, const ChooserState& state) {
  LRESULT row = SendDlgItemMessageW(dialog, IDC_CHOOSER_LIST, LB_GETCURSEL, 0, 0);
  const auto& entries = state.browser.Entries();
  return row >= 0 && static_cast<std::size_t>(row) < entries.size() ? &entries[row] : nullptr;
}

// One tap opens a folder; a file is only shown with its path until Done.
void OnRowTapped(HWND dialog, ChooserState& state) {
  const BrowseEntry* entry = SelectedEntry(dialog, state);
  if (entry == nullptr) return;
  std::u16string path = state.browser.PathOf(*entry);
  if (!entry->isFolder) {
    SetDlgItemTextW(dialog, IDC_CHOOSER_PATH, ToWide(path).c_str());
    return;
  }
  if (state.browser.Open(path)) {
    ShowFolder(dialog, state);
    return;
  }
  SendDlgItemMessageW(dialog, IDC_CHOOSER_LIST, LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
  RefuseTooLong(dialog, state);
}

void OnUp(HWND dialog, ChooserState& state) {
  if (state.browser.Up()) ShowFolder(dialog, state);
}

void OnDone(HWND dialog, ChooserState& state) {
  std::u16string chosen = state.browser.Folder();
  if (state.browser.Target() == BrowseFor::File) {
    const BrowseEntry* entry = SelectedEntry(dialog, state);
    if (entry == nullptr || entry->isFolder) {
      ShowLanguageMessage(dialog, state.language, kTextNoFileChosen, kTextChooseFile);
      return;
    }
    chosen = state.browser.PathOf(*entry);
  }
  if (!state.browser.Fits(chosen)) {
    RefuseTooLong(dialog, state);
    return;
  }
  std::copy(chosen.begin(), chosen.end(), state.path);
  state.path[chosen.size()] = 0;
  EndDialog(dialog, 1);
}

BOOL OnCommand(HWND dialog, ChooserState& state, int id, int code) {
  switch (id) {
    case IDOK:
      OnDone(dialog, state);
      return TRUE;
    case IDM_CANCEL:
    case IDCANCEL:
      EndDialog(dialog, 0);
      return TRUE;
    case IDC_CHOOSER_UP:
      OnUp(dialog, state);
      return TRUE;
    case IDC_CHOOSER_LIST:
      if (code == LBN_SELCHANGE) OnRowTapped(dialog, state);
      return TRUE;
  }
  return FALSE;
}

INT_PTR OnMessage(HWND dialog, ChooserState& state, UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_COMMAND:
      return OnCommand(dialog, state, LOWORD(wParam), HIWORD(wParam));
    case WM_SIZE:
      OnSize(dialog);
      return TRUE;
  }
  return FALSE;
}

}  // namespace

int ChoosePath(HWND owner, HINSTANCE resources, HMODULE language, FileSystem& files, Locale& locale,
               BrowseFor target, wchar_t* path, std::size_t capacity) {
  if (path == nullptr || capacity == 0) return 0;
  ChooserState state = {resources, language, FolderBrowser(files, locale, target, capacity), path, capacity};
  INT_PTR result = DialogBoxParamW(resources, MAKEINTRESOURCEW(IDD_FILE_CHOOSER), owner,
                                   FrameDialogProc<ChooserState, OnInitDialog, OnMessage>,
                                   reinterpret_cast<LPARAM>(&state));
  return result == 1 ? 1 : 0;
}

}  // namespace tw
