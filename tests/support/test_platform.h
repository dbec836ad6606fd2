// What a core test runs against: natively an in-memory registry, a fixed
// locale and a temporary folder; under Wine the real registry, locale and
// file system of the prefix. Each test starts from an empty product tree.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/bitmaps.h"
#include "platform/database.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/registry.h"

namespace tw::test {

// Registry reads and writes for checks, with the type reported.
struct StoredValue {
  bool present = false;
  std::uint32_t type = 0;
  std::uint32_t dword = 0;
  std::u16string text;
};
StoredValue ReadValue(Registry& registry, RegKey root, std::u16string_view path,
                      std::u16string_view name);
void WriteDword(Registry& registry, RegKey root, std::u16string_view path,
                std::u16string_view name, std::uint32_t value);
void WriteText(Registry& registry, RegKey root, std::u16string_view path,
               std::u16string_view name, std::u16string_view text);
void WriteRaw(Registry& registry, RegKey root, std::u16string_view path, std::u16string_view name,
              std::uint32_t type, const void* data, std::uint32_t size);
// Names of the values of a key, in enumeration order; empty if the key is missing.
std::vector<std::u16string> ValueNames(Registry& registry, RegKey root, std::u16string_view path);
std::vector<std::u16string> SubkeyNames(Registry& registry, RegKey root, std::u16string_view path);
bool KeyExists(Registry& registry, RegKey root, std::u16string_view path);

class PlatformTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  Registry& registry();
  Locale& locale();
  FileSystem& files();
  // Natively in memory; under Wine the text file named like the database.
  ObjectStore& database();
  void WriteDatabase(std::u16string_view name, const std::vector<DatabaseRecord>& records);
  Bitmaps& bitmaps();
  // A device folder that exists and is empty at the start of each test.
  std::u16string Folder() const { return u"\\twtest"; }

  // Values below HKEY_CURRENT_USER.
  void Put(std::u16string_view path, std::u16string_view name, std::uint32_t value) {
    WriteDword(registry(), kCurrentUser, path, name, value);
  }
  void PutText(std::u16string_view path, std::u16string_view name, std::u16string_view text) {
    WriteText(registry(), kCurrentUser, path, name, text);
  }
  StoredValue Stored(std::u16string_view path, std::u16string_view name) {
    return ReadValue(registry(), kCurrentUser, path, name);
  }

  void Use24HourClock(bool on);
  void SetFirstDayOfWeek(int day);  // 0 = Monday .. 6 = Sunday
};

// Removes a folder (a host path natively, a device path under Wine) and
// everything below it, never following a link out of it; a folder that is
// itself a link is left alone. False when anything could not be removed.
bool RemoveTestFolder(const std::u16string& folder);

#ifdef _WIN32
// The Unix home folder as Wine shows it ("Z:\\home\\..."), from the
// WINEHOMEDIR Wine sets (HOME itself is not passed on); empty without one.
std::wstring HostHomeFolder();
#endif

// Printable form of UTF-16 text for failure messages.
std::string Show(std::u16string_view text);

}  // namespace tw::test
