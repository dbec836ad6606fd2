#include "platform/win32/win32_text_library.h"

#include "platform/win32/wide.h"

namespace tw {

int Win32TextLibrary::Lookup(unsigned id, char16_t* buffer, int capacity) const {
  if (module_ == nullptr || capacity <= 0) return 0;
  buffer[0] = 0;
  return LoadStringW(module_, id, AsWide(buffer), capacity);
}

}  // namespace tw
