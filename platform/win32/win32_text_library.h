#pragma once

#include <windows.h>

#include "platform/text_library.h"

namespace tw {

// Texts of a loaded resource library (or of the program itself).
class Win32TextLibrary : public TextLibrary {
 public:
  explicit Win32TextLibrary(HINSTANCE module) : module_(module) {}
  int Lookup(unsigned id, char16_t* buffer, int capacity) const override;
  HINSTANCE Module() const { return module_; }

 private:
  HINSTANCE module_;
};

}  // namespace tw
