// Modal dialogs driven from inside their own message loop, as a user would:
// each step waits for the dialog holding a given control, taps and types on
// it and closes it. Message boxes are answered by the answerer.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/ui/app_harness.h"

namespace tw::test {

class DialogTest : public ::testing::Test {
 protected:
  using Step = std::function<void(HWND dialog)>;

  void SetUp() override;
  void TearDown() override;

  // The next dialog holding control `marker` gets `step`. A step that leaves
  // its dialog open has it cancelled, so a failed check never hangs the suite.
  void Then(int marker, Step step);
  // Runs open() (which returns when its dialog closes) while the steps play.
  template <typename Open>
  auto Run(Open open) {
    StartSteps();
    auto result = open();
    StopSteps();
    return result;
  }

  // On each screen a dialog is checked on (at 192 dpi only the large one):
  // opens it, checks and saves it as `name`, lets `more` look on, cancels it.
  void OnEveryScreen(int marker, const std::wstring& name, const std::function<void()>& open, Step more = {});

  HWND owner_ = nullptr;
  HINSTANCE resources_ = nullptr;
  HMODULE language_ = nullptr;
  MessageBoxAnswerer answerer_;

 private:
  static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);
  void StartSteps();
  void StopSteps();
  std::vector<std::pair<int, Step>> steps_;
  std::vector<HWND> played_;
  UINT_PTR timer_ = 0;
};

// What a user does.
void Tap(HWND window, POINT at);
void TapControl(HWND dialog, int id);
void TapMenuBar(HWND dialog, int command);
bool MenuBarHas(HWND dialog, int command);
// Types into a field replacing its text, as an undoable edit, then leaves it.
void TypeAndLeave(HWND dialog, int field, const std::wstring& text);
std::wstring ItemText(HWND dialog, int id);
COLORREF PixelAt(HWND window, POINT at);

// Checks the dialog's layout and saves the device screen as the screenshot
// <name>_<screen>_<dpi>.
void CheckLayoutAndSave(HWND dialog, const std::wstring& name);

}  // namespace tw::test
