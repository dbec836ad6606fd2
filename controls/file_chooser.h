// The full-screen file and folder chooser: the folder shown at the top, its
// entries below (folders first), one tap on a folder opens it, Up goes back,
// Done chooses.
#pragma once

#include <windows.h>

#include <cstddef>

#include "data/folder_browser.h"
#include "platform/file_system.h"
#include "platform/locale.h"

namespace tw {

inline constexpr std::size_t kChooserPathCapacity = 256;

// Runs the chooser modally over `owner`, starting where `path` points (the
// root when it points nowhere). Returns 1 with the chosen file (or, for
// BrowseFor::Folder, the folder shown) in `path`, or 0 when the user cancels,
// leaving `path` alone. A path that would not fit `capacity` characters
// with its terminator is refused with a message, never cut.
int ChoosePath(HWND owner, HINSTANCE resources, HMODULE language, FileSystem& files, Locale& locale,
               BrowseFor target, wchar_t* path, std::size_t capacity = kChooserPathCapacity);

}  // namespace tw
