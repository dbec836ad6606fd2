#include "tests/ui/modal_step.h"

#include <gtest/gtest.h>

namespace tw::test {
namespace {

struct Pending {
  int marker = 0;
  ModalStep step;
  bool played = false;
};
Pending gPending;

BOOL CALLBACK FindMarked(HWND window, LPARAM found) {
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  if (lstrcmpW(name, L"#32770") != 0 || !IsWindowVisible(window) || GetDlgItem(window, gPending.marker) == nullptr)
    return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
  if (gPending.played) return;
  HWND dialog = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), FindMarked, reinterpret_cast<LPARAM>(&dialog));
  if (dialog == nullptr) return;
  gPending.played = true;
  UpdateWindow(dialog);
  gPending.step(dialog);
  if (IsWindow(dialog) && IsWindowVisible(dialog)) {
    ADD_FAILURE() << "a step left its dialog open";
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  }
}

}  // namespace

void WithModal(int marker, ModalStep step, const std::function<void()>& open) {
  gPending = {marker, std::move(step), false};
  UINT_PTR timer = SetTimer(nullptr, 0, 20, Tick);
  open();
  KillTimer(nullptr, timer);
  EXPECT_TRUE(gPending.played) << "no dialog with control " << marker << " opened";
  gPending = {};
}

}  // namespace tw::test
