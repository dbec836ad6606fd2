// Driving the real main window inside the test process: the resource
// libraries installed where the program looks for them, message boxes
// answered from another thread, the settings-changed broadcast received by
// a window of the test, and the taps of a user turned into messages.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/test_platform.h"

namespace tw::test {

// Answers every message box of this thread as it appears: Yes/No boxes with
// the chosen answer, others with OK. Keeps each box in order.
class MessageBoxAnswerer {
 public:
  MessageBoxAnswerer();
  ~MessageBoxAnswerer() { UnhookWindowsHookEx(hook_); }
  void AnswerYesNo(int answer) { yesNo_ = answer; }
  struct Box {
    std::wstring caption, text;
    RECT area;  // on the screen
  };
  std::vector<Box> boxes;
  // "caption: text" of each box, and of the last one.
  std::vector<std::wstring> Seen() const;
  std::wstring Last() const { return boxes.empty() ? L"" : Seen().back(); }

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
  HHOOK hook_;
  int yesNo_ = IDYES;
  HWND last_ = nullptr;
};

// A top-level window that counts one message it receives (by default the
// registered settings-changed message), after the queue is pumped.
class BroadcastListener {
 public:
  explicit BroadcastListener(UINT message = 0, const wchar_t* className = L"TwTestBroadcastListener");
  ~BroadcastListener() { DestroyWindow(window_); }
  int Received() const;

 private:
  HWND window_ = nullptr;
};

// Counts the Today screen's reloads (WM_SETTINGCHANGE with 0xF2) sent to the
// desktop window, which lives in another process: a hook library loaded
// there posts each one on to this listener.
class TodayScreenListener : public BroadcastListener {
 public:
  TodayScreenListener();
  ~TodayScreenListener();

 private:
  HHOOK hook_ = nullptr;
};

// Processes what is queued for this thread; a pending WM_QUIT is dropped.
void Pump();
// Polls (pumping) until the condition holds or the time (in ms) has passed.
template <typename Condition>
bool WaitFor(Condition condition, int milliseconds = 5000) {
  for (int i = 0; i < milliseconds / 10; ++i) {
    Pump();
    if (condition()) return true;
    Sleep(10);
  }
  return condition();
}

// The text of a language library string, as the program would show it,
// and a message box's as the answerer sees it.
std::wstring EnglishText(unsigned id);
inline std::wstring EnglishBox(unsigned text, unsigned caption) { return EnglishText(caption) + L": " + EnglishText(text); }

// Where Export writes and Import reads, as a device path.
inline constexpr char16_t kDocument[] = u"\\My Documents\\TW_Settings.txt";

class AppTest : public PlatformTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Instance set-up as the program does it, with the program's resources.
  HWND Start(int startPage = 0);
  HWND Window() const;
  // The user picks a page in the selector.
  void SelectPage(int page);
  // A tap on a tab of a page's strip: the strip announces the change, then the new tab.
  void TapTab(HWND strip, int tab);
  // The program started on each device screen (240 x 320, 320 x 240, 480 x
  // 640 at 192 dpi), in English and then in German, opened by `open`; then
  // for each of `shots` states set by `show`, the layout is checked and the
  // screen saved as <name>[-de]-<screen>-<shot>.bmp under the tests'
  // screenshots folder.
  void CheckEveryScreen(const std::wstring& name, int shots, const std::function<void()>& open,
                        const std::function<void(int shot)>& show);
  // The layout check of the window as it is now, failures labelled.
  void ExpectLayoutFits(const std::string& label);
  // A tap that sends the command (title strip OK, menu bar, menu item).
  void Command(unsigned id);
  // The record as saved, without the first-run notice.
  void SkipFirstRunNotice();
  // The whole product tree as the export writes it, for comparing states.
  std::string RegistrySnapshot();
  // The file Import reads.
  void WriteDocument(const std::string& text) { ASSERT_TRUE(files().WriteAll(kDocument, text.data(), text.size())); }

  MessageBoxAnswerer answerer_;
  BroadcastListener listener_;
};

}  // namespace tw::test
