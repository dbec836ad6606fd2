#include "platform/win32/win32_registry.h"

#include <windows.h>

#include "platform/win32/wide.h"

namespace tw {
namespace {

HKEY ToHkey(RegKey key) {
  if (key == kCurrentUser) return HKEY_CURRENT_USER;
  if (key == kLocalMachine) return HKEY_LOCAL_MACHINE;
  return reinterpret_cast<HKEY>(key);
}

bool IsRoot(RegKey key) { return key == kCurrentUser || key == kLocalMachine; }

}  // namespace

long Win32Registry::Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) {
  std::wstring subkey = ToWide(path);
  HKEY opened = nullptr;
  LONG result = create ? RegCreateKeyExW(ToHkey(parent), subkey.c_str(), 0, nullptr, 0,
                                         KEY_ALL_ACCESS, nullptr, &opened, nullptr)
                       : RegOpenKeyExW(ToHkey(parent), subkey.c_str(), 0, KEY_ALL_ACCESS, &opened);
  key = result == ERROR_SUCCESS ? reinterpret_cast<RegKey>(opened) : 0;
  return result;
}

long Win32Registry::Close(RegKey key) {
  return IsRoot(key) ? ERROR_SUCCESS : RegCloseKey(ToHkey(key));
}

long Win32Registry::Query(RegKey key, std::u16string_view name, std::uint32_t& type, void* data,
                          std::uint32_t& size) {
  std::wstring valueName = ToWide(name);
  DWORD valueType = 0, valueSize = size;
  LONG result = RegQueryValueExW(ToHkey(key), valueName.c_str(), nullptr, &valueType,
                                 static_cast<BYTE*>(data), &valueSize);
  type = valueType;
  size = valueSize;
  return result;
}

long Win32Registry::Set(RegKey key, std::u16string_view name, std::uint32_t type, const void* data,
                        std::uint32_t size) {
  std::wstring valueName = ToWide(name);
  return RegSetValueExW(ToHkey(key), valueName.c_str(), 0, type, static_cast<const BYTE*>(data), size);
}

long Win32Registry::DeleteValue(RegKey key, std::u16string_view name) {
  std::wstring valueName = ToWide(name);
  return RegDeleteValueW(ToHkey(key), valueName.c_str());
}

long Win32Registry::EnumValue(RegKey key, std::uint32_t index, char16_t* name,
                              std::uint32_t& nameChars, std::uint32_t& type, void* data,
                              std::uint32_t& dataSize) {
  DWORD chars = nameChars, valueType = 0, size = dataSize;
  LONG result = RegEnumValueW(ToHkey(key), index, AsWide(name), &chars, nullptr, &valueType,
                              static_cast<BYTE*>(data), data ? &size : nullptr);
  nameChars = chars;
  type = valueType;
  dataSize = size;
  return result;
}

long Win32Registry::EnumKey(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars) {
  DWORD chars = nameChars;
  LONG result = RegEnumKeyExW(ToHkey(key), index, AsWide(name), &chars, nullptr, nullptr, nullptr, nullptr);
  nameChars = chars;
  return result;
}

long Win32Registry::DeleteTree(RegKey parent, std::u16string_view subkey) {
  std::wstring path = ToWide(subkey);
  return RegDeleteTreeW(ToHkey(parent), path.c_str());
}

}  // namespace tw
