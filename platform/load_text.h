#pragma once

#include "base/wide_string.h"
#include "platform/text_library.h"

namespace tw {

// Loads text number id into destination through a 1024-character buffer;
// returns the characters loaded, 0 (and an empty destination) when the id is
// missing or there is no library.
int LoadText(const TextLibrary* library, unsigned id, WideString& destination);

}  // namespace tw
