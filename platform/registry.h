// The registry as the device's API offers it. The core touches values only
// through this interface, so the in-memory stand-in and the real Win32 calls
// must agree on every detail the settings rely on: names compared without
// case, "more data" when a buffer is short, types stored and never converted,
// enumeration by name.
#pragma once

#include <cstdint>
#include <string_view>

namespace tw {

using RegKey = std::uintptr_t;  // an open key; 0 is no key
inline constexpr RegKey kCurrentUser = 0x80000001;
inline constexpr RegKey kLocalMachine = 0x80000002;

// Result codes are the Win32 ones, so callers read the same numbers everywhere.
enum RegResult : long {
  kRegSuccess = 0,
  kRegNotFound = 2,        // ERROR_FILE_NOT_FOUND
  kRegInvalidHandle = 6,   // ERROR_INVALID_HANDLE
  kRegInvalidParameter = 87,
  kRegMoreData = 234,      // ERROR_MORE_DATA
  kRegNoMoreItems = 259,   // ERROR_NO_MORE_ITEMS
  kRegAccessDenied = 5,
};

enum RegType : std::uint32_t {
  kRegNone = 0,
  kRegSz = 1,
  kRegExpandSz = 2,
  kRegBinary = 3,
  kRegDword = 4,
  kRegMultiSz = 7,
  kRegQword = 11,
};

class Registry {
 public:
  virtual ~Registry() = default;

  // RegCreateKeyExW (create) or RegOpenKeyExW; path may hold several levels.
  virtual long Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) = 0;
  virtual long Close(RegKey key) = 0;
  // RegQueryValueExW: size is the buffer in bytes on entry, the data's size on
  // return. A short buffer fails with kRegMoreData and copies nothing; data may
  // be null to ask for the size only. After any other failure type and size
  // say nothing (Wine zeroes some of them, the in-memory registry none).
  virtual long Query(RegKey key, std::u16string_view name, std::uint32_t& type,
                     void* data, std::uint32_t& size) = 0;
  virtual long Set(RegKey key, std::u16string_view name, std::uint32_t type,
                   const void* data, std::uint32_t size) = 0;
  virtual long DeleteValue(RegKey key, std::u16string_view name) = 0;
  // RegEnumValueW: nameChars is the name buffer in characters (terminator
  // included) on entry and the name's length on return; dataSize as for Query.
  virtual long EnumValue(RegKey key, std::uint32_t index, char16_t* name,
                         std::uint32_t& nameChars, std::uint32_t& type, void* data,
                         std::uint32_t& dataSize) = 0;
  // RegEnumKeyExW with the same buffer convention for the name.
  virtual long EnumKey(RegKey key, std::uint32_t index, char16_t* name,
                       std::uint32_t& nameChars) = 0;
  // Deletes the subkey and everything below it.
  virtual long DeleteTree(RegKey parent, std::u16string_view subkey) = 0;

  long SetDword(RegKey key, std::u16string_view name, std::uint32_t value) {
    return Set(key, name, kRegDword, &value, sizeof value);
  }
  // Stored with its terminator, as REG_SZ data always is.
  long SetString(RegKey key, std::u16string_view name, std::u16string_view text);
};

// Closes the key when it leaves scope; an unopened key stays 0.
class ScopedKey {
 public:
  explicit ScopedKey(Registry& registry) : registry_(registry) {}
  ScopedKey(Registry& registry, RegKey parent, std::u16string_view path, bool create)
      : registry_(registry) {
    Open(parent, path, create);
  }
  ScopedKey(const ScopedKey&) = delete;
  ScopedKey& operator=(const ScopedKey&) = delete;
  ~ScopedKey() { Reset(); }

  long Open(RegKey parent, std::u16string_view path, bool create) {
    Reset();
    long result = registry_.Open(parent, path, create, key_);
    if (result != kRegSuccess) key_ = 0;
    return result;
  }
  void Reset() {
    if (key_ != 0) registry_.Close(key_);
    key_ = 0;
  }
  RegKey get() const { return key_; }
  explicit operator bool() const { return key_ != 0; }

 private:
  Registry& registry_;
  RegKey key_ = 0;
};

}  // namespace tw
