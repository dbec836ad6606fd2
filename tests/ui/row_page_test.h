// A test of a row-list page in its slot: opening it, and the taps on its
// tabs and rows that a user makes.
#pragma once

#include "app/shell.h"
#include "pages/common_controls.h"
#include "pages/row_list_page.h"
#include "tests/ui/app_harness.h"

namespace tw::test {

// The shared editors in the order the frame lists them.
enum Editor { kTip, kCaption, kDropDown, kCheck, kText, kOrderList, kOrderUp, kOrderDown, kOrderReset, kNumberCombo };

struct RowAt {
  int tab, row;  // row from 1
};

template <typename PageType, int kSlot>
class RowPageTest : public AppTest {
 protected:
  PageType* OpenPage() {
    if (Window() == nullptr) Start();
    SelectPage(kSlot);
    return Page();
  }
  PageType* Page() { return static_cast<PageType*>(Shell().slots[kSlot].get()); }
  HWND EditorWindow(Editor editor) { return Page()->EditorWindows()[editor]; }
  void SelectTab(int tab) { TapTab(Page()->TabStrip(), tab); }
  // A tap on a row; row 0 taps nothing, which deselects.
  void SelectRow(RowAt at) {
    if (Page()->CurrentTab() != at.tab) SelectTab(at.tab);
    ListViewSelect(Page()->List(at.tab), at.row - 1);
  }
  void Deselect() { ListViewSelect(Page()->List(Page()->CurrentTab()), -1); }
};

}  // namespace tw::test
