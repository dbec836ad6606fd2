// A tip with one line of bold text in a small framed pop-up, placed so that
// its bottom-right corner sits just above and left of a point. Drawn here
// rather than with the common controls' tool tip class: the program does not
// load comctl32 at start-up, and a window of our own paints the same on
// every system.
#pragma once

#include <windows.h>

#include <string_view>

namespace tw {

inline constexpr wchar_t kToolTipClass[] = L"ToolTipWindow";

// Creates the tip, hidden, owned by `owner`; `point` is in screen
// coordinates. Show it with ShowWindow(tip, SW_SHOWNOACTIVATE), end it with
// DestroyWindow. Its window text is the tip's text. Null on failure.
HWND CreateToolTip(HINSTANCE instance, HWND owner, std::wstring_view text, POINT point);

}  // namespace tw
