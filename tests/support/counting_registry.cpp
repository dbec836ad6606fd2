#include "tests/support/counting_registry.h"

namespace tw::test {

long CountingRegistry::Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) {
  ++counts.opens;
  ++counts.opensByPath[std::u16string(path)];
  return inner_.Open(parent, path, create, key);
}

long CountingRegistry::Close(RegKey key) {
  ++counts.closes;
  return inner_.Close(key);
}

long CountingRegistry::Query(RegKey key, std::u16string_view name, std::uint32_t& type, void* data,
                             std::uint32_t& size) {
  ++counts.queries;
  return inner_.Query(key, name, type, data, size);
}

long CountingRegistry::Set(RegKey key, std::u16string_view name, std::uint32_t type,
                           const void* data, std::uint32_t size) {
  ++counts.sets;
  ++counts.writesByName[std::u16string(name)];
  return inner_.Set(key, name, type, data, size);
}

long CountingRegistry::DeleteValue(RegKey key, std::u16string_view name) {
  ++counts.deletes;
  ++counts.writesByName[std::u16string(name)];
  return inner_.DeleteValue(key, name);
}

long CountingRegistry::EnumValue(RegKey key, std::uint32_t index, char16_t* name,
                                 std::uint32_t& nameChars, std::uint32_t& type, void* data,
                                 std::uint32_t& dataSize) {
  ++counts.valueEnums;
  return inner_.EnumValue(key, index, name, nameChars, type, data, dataSize);
}

long CountingRegistry::EnumKey(RegKey key, std::uint32_t index, char16_t* name,
                               std::uint32_t& nameChars) {
  ++counts.keyEnums;
  return inner_.EnumKey(key, index, name, nameChars);
}

long CountingRegistry::DeleteTree(RegKey parent, std::u16string_view subkey) {
  ++counts.treeDeletes;
  return inner_.DeleteTree(parent, subkey);
}

}  // namespace tw::test
