#include "platform/registry.h"

#include <string>

namespace tw {

long Registry::SetString(RegKey key, std::u16string_view name, std::u16string_view text) {
  std::u16string data(text);
  return Set(key, name, kRegSz, data.c_str(),
             static_cast<std::uint32_t>((data.size() + 1) * sizeof(char16_t)));
}

}  // namespace tw
