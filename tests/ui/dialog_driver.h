// Modal dialogs driven from inside their own message loop, as a user would:
// each step waits for the dialog holding a given control, taps and types on
// it and closes it. Message boxes are answered by the answerer.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "tests/ui/app_harness.h"

namespace tw::test {

using Step = std::function<void(HWND dialog)>;

// The next dialog of this thread holding control `marker` gets `step`. A step
// that leaves its dialog open has it cancelled, so a failed check never hangs
// the suite.
void Then(int marker, Step step);
// Runs open(), which returns when its dialog closes, while the steps play.
void PlaySteps(const std::function<void()>& open);

class DialogTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  template <typename Open>
  auto Run(Open open) {
    decltype(open()) result{};
    PlaySteps([&] { result = open(); });
    return result;
  }
  // On each screen, in English and in German: opens it, checks and saves it as `name`
  // (German ones `name`-de), lets `more` look on, cancels it.
  void OnEveryScreen(int marker, const std::wstring& name, const std::function<void()>& open, Step more = {});

  HWND owner_ = nullptr;
  HINSTANCE resources_ = nullptr;
  HMODULE language_ = nullptr;
  MessageBoxAnswerer answerer_;
};

void Tap(HWND window, POINT at);
void TapControl(HWND dialog, int id);
// A tap on the file chooser's row showing `text`, as the list box reports it.
void TapChooserRow(HWND dialog, const std::wstring& text);
void TapMenuBar(HWND dialog, int command);
bool MenuBarHas(HWND dialog, int command);
// Types into a field replacing its text, as an undoable edit, then leaves it.
void TypeAndLeave(HWND dialog, int field, const std::wstring& text);
std::wstring ItemText(HWND dialog, int id);
COLORREF PixelAt(HWND window, POINT at);
// Checks the layout and saves the device screen as <name>_<screen>_<dpi>.
void CheckLayoutAndSave(HWND dialog, const std::wstring& name);

}  // namespace tw::test
