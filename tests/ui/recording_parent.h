// A top-level window to hold a control under test: it writes down what the
// control tells it, as (message, id, code), so that a test compares the log
// with a short expected table, and it answers a scroller's draw requests
// with rows of a content of chosen height.
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
  // A visible pop-up with a client area of width x height at (x, y) on the screen.
  RecordingParent(int width, int height, int x = 40, int y = 40);
  ~RecordingParent() { DestroyWindow(window_); }
  RecordingParent(const RecordingParent&) = delete;
  RecordingParent& operator=(const RecordingParent&) = delete;

  HWND window() const { return window_; }

  // WM_COMMAND, the scroller's press and the moves and releases it passes
  // on, in order. Draw requests are kept apart, by the position asked for
  // and the clip box of the context (the parent draws all rows regardless).
  std::vector<Logged> log;
  std::vector<int> drawnFrom;
  std::vector<RECT> drawnClips;
  // The content height a draw request is answered with; rows are 20 high.
  int contentHeight = 0;

  // Paints what is pending and waits for the screen to show it.
  void Settle() const;
  // What the screen shows of the window, or of another (a child, a pop-up).
  tools::Capture Shot(HWND other = nullptr) const;
  // Writes the picture of the window (or of another, such as a pop-up) to
  // build/mingw/screenshots/controls/<name>.bmp; returns the path.
  std::wstring Save(const std::wstring& name, HWND other = nullptr) const;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT DrawRows(HDC dc, LPARAM where);
  HWND window_ = nullptr;
};

// The graphics objects this process holds. Wine's GetGuiResources always
// says 0, so where it does, the live entries of the process's GDI handle
// table are counted instead.
int CountGdiObjects();

COLORREF PixelAt(const tools::Capture& capture, int x, int y);

}  // namespace tw::test
