// Counts the calls that reach a registry, for tests that pin down how much
// work loading and saving does.
#pragma once

#include <map>
#include <string>

#include "platform/registry.h"

namespace tw::test {

class CountingRegistry : public Registry {
 public:
  explicit CountingRegistry(Registry& inner) : inner_(inner) {}

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

  struct Counts {
    int opens = 0, closes = 0, queries = 0, sets = 0, deletes = 0, valueEnums = 0, keyEnums = 0,
        treeDeletes = 0;
    std::map<std::u16string, int> opensByPath;   // by the path as given
    std::map<std::u16string, int> writesByName;  // sets and deletes by value name
  };
  Counts counts;
  void Reset() { counts = Counts(); }

 private:
  Registry& inner_;
};

}  // namespace tw::test
