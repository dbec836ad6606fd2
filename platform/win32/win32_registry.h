#pragma once

#include "platform/registry.h"

namespace tw {

// The real registry through advapi32 (coredll on the device).
class Win32Registry : public Registry {
 public:
  long Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) override;
  long Close(RegKey key) override;
  long Query(RegKey key, std::u16string_view name, std::uint32_t& type, void* data,
             std::uint32_t& size) override;
  long Set(RegKey key, std::u16string_view name, std::uint32_t type, const void* data,
           std::uint32_t size) override;
  long DeleteValue(RegKey key, std::u16string_view name) override;
  long EnumValue(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars,
                 std::uint32_t& type, void* data, std::uint32_t& dataSize) override;
  long EnumKey(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars) override;
  long DeleteTree(RegKey parent, std::u16string_view subkey) override;
};

}  // namespace tw
