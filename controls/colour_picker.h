// The full-screen colour picker that pages open for a colour setting:
// sliders, decimal and web ("HTML #") fields, or a palette to tap.
#pragma once

#include <windows.h>

#include <cstdint>

namespace tw {

// Colours are red in the low byte; these two are never colours.
inline constexpr std::uint32_t kNoColour = 0xFFFFFFFF;
inline constexpr std::uint32_t kColourCancelled = 0xFFFFFFFE;

// Runs the picker modally over `owner`, whose title it borrows while open.
// Returns the chosen colour, kNoColour when the user chose "None" (offered
// only when allowNone), or kColourCancelled: then the caller keeps its own.
// `resources` holds the dialog and its pictures, `language` the texts.
std::uint32_t PickColour(HWND owner, HINSTANCE resources, HMODULE language, std::uint32_t colour, bool allowNone,
                         bool openOnPalette = false);

}  // namespace tw
