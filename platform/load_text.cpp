#include "platform/load_text.h"

namespace tw {

int LoadText(const TextLibrary* library, unsigned id, WideString& destination) {
  char16_t buffer[1024] = {};
  int loaded = library ? library->Lookup(id, buffer, 1024) : 0;
  if (loaded < 0) loaded = 0;
  destination.Assign(std::u16string_view(buffer, static_cast<std::size_t>(loaded)));
  return loaded;
}

}  // namespace tw
