// The main window's WM_COMMAND: the current page first (a command it takes
// goes no further), then the page selector, then the shell's own commands:
// Done, Cancel, Export, Import, Undo, and the schemes the Colours page applies.
#include <windows.h>

#include "app/main_window.h"
#include "app/shell.h"
#include "controls/file_chooser.h"
#include "data/filters.h"
#include "data/schemes.h"
#include "data/settings_backup.h"
#include "data/settings_file.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"

namespace tw {
namespace {

void ShowPair(HWND window, MessagePair message) { ShowMessage(window, message, MB_OK); }

// Writes what only the application holds beside the record: the category
// colours and masks, and the filter file the Today item reads too.
void SaveCategoriesAndFilters() {
  SaveCategoryAttributes(Categories().categories, Platform().registry);
  WriteFilters(Categories().filters, Platform().files, Settings().TWFiltersFileFolder.View());
}

void OnDone(HWND window) {
  DestroyPages();
  if (Shell().filterPanel) Shell().filterPanel->Commit();
  SaveCategoriesAndFilters();
  SaveSettings(Settings(), Platform().Environment());
  FreeLanguageLibrary();
  PostMessageW(HWND_BROADCAST, Shell().settingsChangedMessage, 0, 0);
  DestroyWindow(window);
}

void OnCancel(HWND window) {
  if (ShowMessage(window, kAskCancel, MB_YESNO) != IDYES) return;
  FreeLanguageLibrary();
  DestroyWindow(window);
}

void OnExport(HWND window) {
  std::wstring folder = device::DocumentsFolder();
  if (folder.empty()) return ShowPair(window, kCannotOpenSettingsFile);
  ShowPair(window, ExportSettingsFile(Platform().registry, Platform().files, Categories(), ToU16(folder)));
}

// Import, schemes and Undo replace the registry with no way back, so the
// present state is copied aside first, and a rewrite that cannot leave that
// copy does not start. After a rewrite failed half way the registry holds a
// broken state: the copy of the last whole one is then kept.
HWND gRewriteFailedIn = nullptr;  // the main window of the run it failed in

bool BackedUpBeforeRewrite(HWND window) {
  if (gRewriteFailedIn == window) return true;
  std::wstring folder = device::DocumentsFolder();
  MessagePair refused =
      folder.empty() ? kBackupNoFolder : BackUpSettings(Platform().Environment(), Categories(), ToU16(folder));
  if (refused != kNoMessage) ShowPair(window, refused);
  return refused == kNoMessage;
}

// After the registry was rewritten wholesale: the record is read back, the
// lists are written out, the Today screen reloads and the program ends
// without saving, so the pages' former state cannot undo the rewrite.
void FinishRewrite(HWND window, MessagePair success) {
  LoadSettings(Settings(), Platform().Environment());
  SaveCategoriesAndFilters();
  if (success != kNoMessage) ShowPair(window, success);
  FreeLanguageLibrary();
  device::TellTodayItemsChanged();
  DestroyWindow(window);
}

void OnImport(HWND window) {
  std::wstring folder = device::DocumentsFolder();
  if (folder.empty()) return ShowPair(window, kCannotOpenSettingsFile);
  if (!BackedUpBeforeRewrite(window)) return;
  ImportOutcome outcome = ImportSettingsFile(Platform().registry, Platform().files, Categories(), ToU16(folder));
  if (!outcome.succeeded) {
    if (outcome.message == kImportFailed) gRewriteFailedIn = window;
    ShowPair(window, outcome.message);
    return;
  }
  FinishRewrite(window, outcome.message);
}

// Undo backs up the present state in the backup's place, so that a second
// Undo takes back the first.
void OnUndoRewrite(HWND window) {
  if (ShowMessage(window, kAskUndoRewrite, MB_YESNO) != IDYES) return;
  std::wstring folder = device::DocumentsFolder();
  if (folder.empty()) return ShowPair(window, kBackupUnreadable);
  MessagePair failure =
      UndoRewrite(Platform().Environment(), Categories(), ToU16(folder), gRewriteFailedIn != window);
  if (failure == kUndoIncomplete) gRewriteFailedIn = window;
  if (failure != kNoMessage) return ShowPair(window, failure);
  FinishRewrite(window, kRewriteUndone);
}

MessagePair SaveSchemeFromPage(std::u16string_view name) {
  return SaveScheme(Platform().registry, Platform().files, Categories().categories,
                    Settings().InstallFolder.View(), name);
}

void ApplySchemeFromPage(HWND window, std::u16string_view fileName) {
  if (!BackedUpBeforeRewrite(window)) return;
  MessagePair failure =
      LoadScheme(Platform().registry, Platform().files, Categories(), Settings().InstallFolder.View(), fileName);
  if (failure == kSchemeLoadFailed) gRewriteFailedIn = window;
  if (failure != kNoMessage) return ShowPair(window, failure);
  FinishRewrite(window, kNoMessage);
}

void ChooseIconFolder(HWND window, CategoryListView& list) {
  wchar_t path[kChooserPathCapacity] = {};
  std::wstring start = ToWide(Settings().AdditionalIconsFolder.View());
  start.copy(path, kChooserPathCapacity - 1);
  if (ChoosePath(window, Shell().instance, Shell().language, Platform().files, Platform().locale, BrowseFor::Folder,
                 path) == 1)
    list.SetIconFolder(AsU16(path));
}

// The controls of slots 10 and 11, which the shell owns on their behalf:
// the list's folder buttons it answers itself, the panel's go to the panel.
bool OnInPlaceControl(HWND window, WPARAM wParam) {
  int id = LOWORD(wParam);
  ShellState& shell = Shell();
  if (shell.categoryList && kCategoryListIds.Holds(id)) {
    if (id == CategoryListView::IdOf(CategoryListView::kChooseFolder)) ChooseIconFolder(window, *shell.categoryList);
    if (id == CategoryListView::IdOf(CategoryListView::kClearFolder)) shell.categoryList->SetIconFolder(u"");
    return true;
  }
  if (shell.filterPanel && kFilterPanelIds.Holds(id)) {
    shell.filterPanel->OnCommand(id, HIWORD(wParam));
    return true;
  }
  return false;
}

}  // namespace

const SchemeHooks& PageSchemeHooks() {
  static constexpr SchemeHooks hooks = {SaveSchemeFromPage, ApplySchemeFromPage};
  return hooks;
}

bool CanUndoRewrite() {
  std::wstring folder = device::DocumentsFolder();
  return !folder.empty() && Platform().files.Exists(ToU16(folder + L"\\") + std::u16string(kSettingsBackupName));
}

void FreeLanguageLibrary() {
  if (Shell().language != nullptr) FreeLibrary(Shell().language);
  Shell().language = nullptr;
}

LRESULT OnMainCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  ShellState& shell = Shell();
  if (SettingsPage* page = shell.slots[shell.currentPage].get())
    if (page->OnCommand(window, message, wParam, lParam)) return 0;
  if (OnInPlaceControl(window, wParam)) return 0;
  if (shell.selector != nullptr && reinterpret_cast<HWND>(lParam) == shell.selector &&
      HIWORD(wParam) == CBN_SELCHANGE) {
    SwitchPage(static_cast<int>(SendMessageW(shell.selector, CB_GETCURSEL, 0, 0)));
    return 0;
  }
  switch (LOWORD(wParam)) {
    case IDOK:
      OnDone(window);
      return 0;
    case IDM_CANCEL:
      OnCancel(window);
      return 0;
    case IDM_EXPORT:
      OnExport(window);
      return 0;
    case IDM_IMPORT:
      OnImport(window);
      return 0;
    case IDM_UNDO_REWRITE:
      OnUndoRewrite(window);
      return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tw
