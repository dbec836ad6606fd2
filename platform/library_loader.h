// Language libraries opened by path, for looking at their texts.
#pragma once

#include <memory>
#include <string_view>

#include "platform/text_library.h"

namespace tw {

class LibraryLoader {
 public:
  virtual ~LibraryLoader() = default;
  // LoadLibraryW; the library is freed with the returned object. Null if it
  // cannot be loaded.
  virtual std::unique_ptr<TextLibrary> Load(std::u16string_view path) = 0;
};

}  // namespace tw
