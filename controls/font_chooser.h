// The full-screen chooser of one font record's size, styles and colour. The
// face is not offered: it stays what the record holds.
#pragma once

#include <windows.h>

#include <cstdint>

namespace tw {

// Runs the chooser modally over `owner`. The font changes only when the user
// confirms (then the result is true); the colour changes as soon as the user
// sets one, and a later cancel keeps it. Sizes run 10 to 30; a font outside
// them comes back 9 high unless the user picks a size. Unchecking bold gives
// the thin weight 100, as the Today item expects.
bool EditFont(HWND owner, HINSTANCE resources, HMODULE language, LOGFONTW& font, std::uint32_t& colour);

}  // namespace tw
