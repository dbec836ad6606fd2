// The layout rule every window and page keeps at every screen geometry:
// each visible control lies inside its parent's client area, and no two
// visible sibling controls overlap; and every text a control of this process
// shows has room for all its letters: labels and buttons, the selection and
// entries of drop-downs, list-view items and headers, tab labels. Works
// across processes (texts only in its own), so it also checks the running program.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tw::test {

// One line per fault, naming the controls with class, id, text and rectangle;
// empty when the layout is sound. Descends into every visible control.
std::vector<std::string> CheckLayout(HWND window);
// UTF-8, for messages.
std::string Narrow(const std::wstring& text);

}  // namespace tw::test
