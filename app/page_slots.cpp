// The thirteen page slots: lazy creation, showing, switching and the fixed
// order of destruction.
#include <windows.h>

#include "app/main_window.h"
#include "app/shell.h"

namespace tw {
namespace {

// Done and window destruction store the pages in this order.
constexpr int kDestroyOrder[] = {0, 1, 2, 3, 4, 5, 8, 7, 6, 9, 12};

bool HoldsPageObject(int index) { return index >= 0 && index < kPageCount && index != kCategoryListPage && index != kFilterPanelPage; }

}  // namespace

void ShowPage(int index, int showCommand) {
  // Slots 10 and 11 show and hide the category list and the filter panel,
  // which have no view yet; every other slot holds a page object.
  if (!HoldsPageObject(index)) return;
  std::unique_ptr<SettingsPage>& slot = Shell().slots[index];
  if (!slot) {
    PageFactory make = kPageFactories[index];
    if (make == nullptr) return;
    ShellState& shell = Shell();
    slot = make({shell.mainWindow, shell.instance, shell.normalFont, shell.boldFont});
  }
  slot->Show(showCommand, true);
}

void SwitchPage(int index) {
  if (index < 0 || index >= kPageCount) return;
  ShellState& shell = Shell();
  ShowPage(shell.currentPage, 0);
  shell.currentPage = index;
  ShowPage(index, SW_SHOW);
  InvalidateRect(shell.mainWindow, nullptr, TRUE);
  UpdateWindow(shell.mainWindow);
}

void DestroyPages() {
  for (int index : kDestroyOrder) Shell().slots[index].reset();
}

}  // namespace tw
