// A registry decorator that counts the calls reaching the registry behind it.
#pragma once

#include <map>
#include <string>

#include "platform/registry.h"

namespace tw::test {

class CountingRegistry : public Registry {
 public:
  explicit CountingRegistry(Registry& inner) : inner_(inner) {}
  long Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) override {
    return ++opens, inner_.Open(parent, path, create, key);
  }
  long Close(RegKey key) override { return ++closes, inner_.Close(key); }
  long Query(RegKey key, std::u16string_view name, std::uint32_t& type, void* data, std::uint32_t& size) override {
    return ++queries, inner_.Query(key, name, type, data, size);
  }
  long Set(RegKey key, std::u16string_view name, std::uint32_t type, const void* data, std::uint32_t size) override {
    ++writesByName[std::u16string(name)];
    return ++sets, inner_.Set(key, name, type, data, size);
  }
  long DeleteValue(RegKey key, std::u16string_view name) override {
    ++writesByName[std::u16string(name)];
    return ++deletes, inner_.DeleteValue(key, name);
  }
  long EnumValue(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& chars, std::uint32_t& type,
                 void* data, std::uint32_t& size) override {
    return ++enums, inner_.EnumValue(key, index, name, chars, type, data, size);
  }
  long EnumKey(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& chars) override {
    return inner_.EnumKey(key, index, name, chars);
  }
  long DeleteTree(RegKey parent, std::u16string_view subkey) override { return inner_.DeleteTree(parent, subkey); }

  int opens = 0, closes = 0, queries = 0, enums = 0, sets = 0, deletes = 0;
  std::map<std::u16string, int> writesByName;

 private:
  Registry& inner_;
};

}  // namespace tw::test
