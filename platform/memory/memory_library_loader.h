// Language libraries as tables of texts, by path.
#pragma once

#include <map>
#include <string>

#include "platform/library_loader.h"

namespace tw {

class MemoryLibraryLoader : public LibraryLoader {
 public:
  using Texts = std::map<unsigned, std::u16string>;
  std::map<std::u16string, Texts> libraries;

  std::unique_ptr<TextLibrary> Load(std::u16string_view path) override;
};

}  // namespace tw
