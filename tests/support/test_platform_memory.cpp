#include <filesystem>
#include <memory>
#include <unistd.h>

#include "platform/memory/folder_file_system.h"
#include "platform/memory/memory_bitmaps.h"
#include "platform/memory/memory_database.h"
#include "platform/memory/memory_locale.h"
#include "platform/memory/memory_registry.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

struct NativePlatform {
  MemoryRegistry registry;
  MemoryLocale locale;
  std::filesystem::path root;
  std::unique_ptr<FolderFileSystem> files;
  MemoryObjectStore database;
  std::unique_ptr<MemoryBitmaps> bitmaps;
};

std::unique_ptr<NativePlatform> gPlatform;

}  // namespace

// remove_all removes a link itself and never what it leads to.
bool RemoveTestFolder(const std::u16string& folder) {
  std::filesystem::path path(folder);
  std::error_code error;
  if (std::filesystem::is_symlink(path, error)) return false;
  std::filesystem::remove_all(path, error);
  return !error;
}

void PlatformTest::SetUp() {
  gPlatform = std::make_unique<NativePlatform>();
  gPlatform->root = std::filesystem::temp_directory_path() /
                    ("tw-test-" + std::to_string(::getpid()));
  RemoveTestFolder(gPlatform->root.u16string());
  std::filesystem::create_directories(gPlatform->root / "twtest");
  gPlatform->files = std::make_unique<FolderFileSystem>(gPlatform->root);
  gPlatform->bitmaps = std::make_unique<MemoryBitmaps>(*gPlatform->files);
}

void PlatformTest::TearDown() {
  RemoveTestFolder(gPlatform->root.u16string());
  gPlatform.reset();
}

Registry& PlatformTest::registry() { return gPlatform->registry; }
Locale& PlatformTest::locale() { return gPlatform->locale; }
FileSystem& PlatformTest::files() { return *gPlatform->files; }
ObjectStore& PlatformTest::database() { return gPlatform->database; }
Bitmaps& PlatformTest::bitmaps() { return *gPlatform->bitmaps; }

void PlatformTest::WriteDatabase(std::u16string_view name, const std::vector<DatabaseRecord>& records) {
  gPlatform->database.databases[std::u16string(name)] = records;
}

void PlatformTest::Use24HourClock(bool on) { gPlatform->locale.timeFormatIndicator = on ? u"1" : u"0"; }

void PlatformTest::SetFirstDayOfWeek(int day) {
  gPlatform->locale.firstDayOfWeek = std::u16string(1, static_cast<char16_t>(u'0' + day));
}

}  // namespace tw::test
