// The thirteen page slots: lazy creation, showing, switching and the fixed
// order of destruction.
#include <windows.h>

#include <algorithm>
#include <vector>

#include "app/main_window.h"
#include "app/shell.h"

namespace tw {

PageContext MakePageContext() {
  const ShellState& shell = Shell();
  return {shell.mainWindow, shell.instance,  shell.language,  shell.normalFont,
          shell.boldFont,   Settings(),      PreviewFonts(),  PreviewImages(),
          &PageSchemeHooks(), &Platform().registry, &Categories().categories};
}

SettingsPage* InPlaceView(int index) {
  if (index == kCategoryListPage) return Shell().categoryList.get();
  if (index == kFilterPanelPage) return Shell().filterPanel.get();
  return nullptr;
}

SettingsPage* ShownPage() {
  int current = Shell().currentPage;
  if (SettingsPage* view = InPlaceView(current)) return view;
  return Shell().slots[current].get();
}

void ShowPage(int index, int showCommand) {
  if (index < 0 || index >= kPageCount) return;
  if (SettingsPage* view = InPlaceView(index)) return view->Show(showCommand, true);
  // Slots without a factory (pages not written yet) show nothing.
  std::unique_ptr<SettingsPage>& slot = Shell().slots[index];
  if (!slot) {
    PageFactory make = kPages[index].make;
    if (make == nullptr) return;
    slot = make(MakePageContext());
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
  std::vector<int> order;
  for (int index = 0; index < kPageCount; ++index)
    if (kPages[index].destroyRank >= 0) order.push_back(index);
  std::sort(order.begin(), order.end(),
            [](int a, int b) { return kPages[a].destroyRank < kPages[b].destroyRank; });
  for (int index : order) Shell().slots[index].reset();
}

}  // namespace tw
