#include <gtest/gtest.h>

#include <cstring>

#include "base/text.h"
#include "tests/support/test_platform.h"

namespace tw::test {

StoredValue ReadValue(Registry& registry, RegKey root, std::u16string_view path,
                      std::u16string_view name) {
  StoredValue value;
  ScopedKey key(registry, root, path, false);
  if (!key) return value;
  std::uint32_t size = 0;
  if (registry.Query(key.get(), name, value.type, nullptr, size) != kRegSuccess) return value;
  std::vector<std::uint8_t> data(size + 2, 0);
  if (registry.Query(key.get(), name, value.type, data.data(), size) != kRegSuccess) return value;
  value.present = true;
  if (size >= 4) std::memcpy(&value.dword, data.data(), 4);
  if (value.type == kRegSz || value.type == kRegExpandSz) {
    value.text.assign(reinterpret_cast<const char16_t*>(data.data()), size / 2);
    while (!value.text.empty() && value.text.back() == 0) value.text.pop_back();
  }
  return value;
}

void WriteRaw(Registry& registry, RegKey root, std::u16string_view path, std::u16string_view name,
              std::uint32_t type, const void* data, std::uint32_t size) {
  ScopedKey key(registry, root, path, true);
  ASSERT_TRUE(key) << Show(path);
  ASSERT_EQ(registry.Set(key.get(), name, type, data, size), kRegSuccess) << Show(name);
}

void WriteDword(Registry& registry, RegKey root, std::u16string_view path,
                std::u16string_view name, std::uint32_t value) {
  WriteRaw(registry, root, path, name, kRegDword, &value, 4);
}

void WriteText(Registry& registry, RegKey root, std::u16string_view path,
               std::u16string_view name, std::u16string_view text) {
  std::u16string data(text);
  WriteRaw(registry, root, path, name, kRegSz, data.c_str(),
           static_cast<std::uint32_t>((data.size() + 1) * 2));
}

namespace {

// Value names, or subkey names, in enumeration order.
std::vector<std::u16string> Names(Registry& registry, RegKey root, std::u16string_view path, bool subkeys) {
  std::vector<std::u16string> names;
  ScopedKey key(registry, root, path, false);
  char16_t name[16384];
  for (std::uint32_t i = 0, chars = 16384, type = 0, size = 0; key; ++i, chars = 16384) {
    if ((subkeys ? registry.EnumKey(key.get(), i, name, chars)
                 : registry.EnumValue(key.get(), i, name, chars, type, nullptr, size)) != kRegSuccess)
      break;
    names.emplace_back(name, chars);
  }
  return names;
}

}  // namespace

std::vector<std::u16string> ValueNames(Registry& registry, RegKey root, std::u16string_view path) {
  return Names(registry, root, path, false);
}

std::vector<std::u16string> SubkeyNames(Registry& registry, RegKey root, std::u16string_view path) {
  return Names(registry, root, path, true);
}

bool KeyExists(Registry& registry, RegKey root, std::u16string_view path) {
  ScopedKey key(registry, root, path, false);
  return static_cast<bool>(key);
}

std::string Show(std::u16string_view text) { return Utf16ToUtf8(text); }

}  // namespace tw::test

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
