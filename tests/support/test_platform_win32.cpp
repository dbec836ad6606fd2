#include <windows.h>

#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_bitmaps.h"
#include "platform/win32/win32_database.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_locale.h"
#include "platform/win32/win32_registry.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

Win32Registry gRegistry;
Win32Locale gLocale;
Win32FileSystem gFiles;
Win32ObjectStore gDatabase;
Win32Bitmaps gBitmaps;

// Keys the product and its settings read; each test starts without them.
constexpr std::u16string_view kCleanCurrentUser[] = {u"Software\\Orvex", u"Software\\WebIS",
                                                     u"Software\\TwTest"};
constexpr std::u16string_view kCleanLocalMachine[] = {u"Software\\Microsoft\\today\\items\\Tidewell",
                                                      u"SOFTWARE\\Developer One, Inc."};

bool IsLink(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }

void RemoveBelow(const std::wstring& folder) {
  WIN32_FIND_DATAW found;
  HANDLE find = FindFirstFileW((folder + L"\\*").c_str(), &found);
  if (find == INVALID_HANDLE_VALUE) return;
  do {
    std::wstring name = found.cFileName;
    if (name == L"." || name == L"..") continue;
    std::wstring path = folder + L"\\" + name;
    // Wine shows a linked folder as a reparse point; what it leads to is
    // not ours, and removing the link itself would empty its target.
    if (IsLink(found.dwFileAttributes)) continue;
    if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
      RemoveBelow(path);
      RemoveDirectoryW(path.c_str());
    } else {
      DeleteFileW(path.c_str());
    }
  } while (FindNextFileW(find, &found));
  FindClose(find);
}

}  // namespace

bool RemoveTestFolder(const std::u16string& folder) {
  std::wstring path(AsWide(folder.c_str()));
  DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return true;
  if (IsLink(attributes) || !(attributes & FILE_ATTRIBUTE_DIRECTORY)) return false;
  RemoveBelow(path);
  return RemoveDirectoryW(path.c_str()) != 0;
}

std::wstring HostHomeFolder() {
  wchar_t path[MAX_PATH] = {};
  if (GetEnvironmentVariableW(L"WINEHOMEDIR", path, MAX_PATH) == 0) return L"";
  std::wstring home = path;
  return home.rfind(L"\\??\\", 0) == 0 ? home.substr(4) : home;
}

void PlatformTest::SetUp() {
  // Paths without a drive resolve against the current one: the prefix's C:,
  // as for the program, never the host's root, which Wine shows as the
  // current drive Z: when the suite starts in the build tree.
  device::EnterDeviceFileSystem();
  for (auto path : kCleanCurrentUser) gRegistry.DeleteTree(kCurrentUser, path);
  for (auto path : kCleanLocalMachine) gRegistry.DeleteTree(kLocalMachine, path);
  ASSERT_TRUE(RemoveTestFolder(Folder())) << "a test folder that is a link or cannot be emptied";
  CreateDirectoryW(L"\\twtest", nullptr);
  Use24HourClock(false);
  SetFirstDayOfWeek(6);
}

void PlatformTest::TearDown() {
  RemoveTestFolder(Folder());
  DeleteFileW(L"\\Categories Database");
}

Registry& PlatformTest::registry() { return gRegistry; }
Locale& PlatformTest::locale() { return gLocale; }
FileSystem& PlatformTest::files() { return gFiles; }
ObjectStore& PlatformTest::database() { return gDatabase; }
Bitmaps& PlatformTest::bitmaps() { return gBitmaps; }

void PlatformTest::WriteDatabase(std::u16string_view name, const std::vector<DatabaseRecord>& records) {
  std::string text = FormatDatabaseText(records);
  ASSERT_TRUE(gFiles.WriteAll(name, text.data(), text.size()));
}

void PlatformTest::Use24HourClock(bool on) {
  // The clock indicator follows the time picture.
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STIMEFORMAT, on ? L"HH:mm:ss" : L"h:mm:ss tt");
}

void PlatformTest::SetFirstDayOfWeek(int day) {
  wchar_t text[2] = {static_cast<wchar_t>(L'0' + day), 0};
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IFIRSTDAYOFWEEK, text);
}

}  // namespace tw::test
