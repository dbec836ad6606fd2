// The layout rule every window and page keeps at every screen geometry:
// each visible control lies inside its parent's client area, and no two
// visible sibling controls overlap unless one is meant to contain the other;
// labels and buttons of this process have room for their text.
// Works across processes, so it also checks the running program.
#pragma once

#include <windows.h>

#include <span>
#include <string>
#include <vector>

namespace tw::test {

// Siblings by control id, the outer one deliberately holding the inner one.
struct Containment {
  int outer;
  int inner;
};

// One line per fault, naming the controls with class, id, text and rectangle;
// empty when the layout is sound. Descends into every visible control.
std::vector<std::string> CheckLayout(HWND window, std::span<const Containment> allowed = {});

// "<class> #<id> '<text>' (l,t)-(r,b)" in the parent's client coordinates.
std::string DescribeControl(HWND control);

}  // namespace tw::test
