// The Today plug-in chooser: the installed plug-ins that can become tabs of
// the Today item, and, for one still shown on the Today screen, the offer to
// switch it off there so that it does not show twice.
#pragma once

#include <windows.h>

#include <string>

#include "platform/registry.h"

namespace tw {

// Runs the chooser modally over `owner`. Returns 1 with the chosen item's
// name in `chosen`; 0 when the user cancels or declines to switch the item
// off, or there is nothing to choose.
int ChoosePlugin(HWND owner, HINSTANCE resources, HMODULE language, Registry& registry, std::u16string& chosen);

}  // namespace tw
