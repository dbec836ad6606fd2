// A top-level window to hold a control under test: it logs what the control
// tells it as (message, id, code), so a test compares the log with a short
// table, and answers a scroller's draw requests with 20-pixel rows.
#pragma once

#include <windows.h>

#include <ostream>
#include <string>
#include <vector>

#include "tools/screen_capture.h"

namespace tw::test {

struct Logged {
  UINT message;
  WPARAM id;
  LPARAM code;
  bool operator==(const Logged&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Logged& entry);

class RecordingParent {
 public:
  RecordingParent(int width, int height, int x = 40, int y = 40);
  ~RecordingParent() { DestroyWindow(window_); }
  RecordingParent(const RecordingParent&) = delete;
  RecordingParent& operator=(const RecordingParent&) = delete;
  HWND window() const { return window_; }

  // Commands, presses, and the moves and releases passed on, in order; draw
  // requests apart, by position asked for and clip box.
  std::vector<Logged> log;
  std::vector<int> drawnFrom;
  std::vector<RECT> drawnClips;
  int contentHeight = 0;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT DrawRows(HDC dc, LPARAM where);
  HWND window_ = nullptr;
};

// Paints what is pending and waits for the screen to show it.
void Settle(HWND window);
// What the screen shows of a window (or of `area` when given), after Settle.
tools::Capture Shot(HWND window, RECT area = {});
// Writes what the screen shows of the window (or of `area` when given) to
// screenshots\<name>.bmp beside the test program; the path, or empty.
std::wstring SaveScreenshot(const std::wstring& name, HWND window, RECT area = {});

// Wine's GetGuiResources always says 0; there the live entries of the
// process's GDI handle table are counted instead.
int CountGdiObjects();
COLORREF PixelAt(const tools::Capture& capture, int x, int y);

}  // namespace tw::test
