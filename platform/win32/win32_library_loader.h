#pragma once

#include "platform/library_loader.h"

namespace tw {

class Win32LibraryLoader : public LibraryLoader {
 public:
  std::unique_ptr<TextLibrary> Load(std::u16string_view path) override;
};

}  // namespace tw
