// The backup of whatever state an import can leave in the registry: it must
// import again, and the registry it makes must load the same record; its
// exact tree must restore the very registry it came from. The input is tried
// as a backup's exact tree too.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "data/registry_snapshot.h"
#include "data/settings_backup.h"
#include "data/settings_file.h"
#include "platform/memory/folder_file_system.h"
#include "platform/memory/memory_locale.h"
#include "platform/memory/memory_registry.h"

namespace {

// Every value behind a record, in listing order.
class Listing final : public tw::LoadedValueSink {
 public:
  void Number(std::u16string_view path, std::u16string_view name, std::int32_t loaded, std::int32_t) override {
    text += tw::FormatText(u"%s\\%s=%d\n", {path, name, loaded}, tw::WideString::kMaxLength);
  }
  void Text(std::u16string_view path, std::u16string_view name, std::u16string_view loaded,
            std::u16string_view) override {
    text += tw::FormatText(u"%s\\%s=%s\n", {path, name, loaded}, tw::WideString::kMaxLength);
  }
  std::u16string text;
};

std::u16string LoadedValues(tw::Registry& registry, tw::Locale& locale, tw::FileSystem& files) {
  tw::SettingsEnvironment environment{registry, locale, files};
  auto store = std::make_unique<tw::SettingsStore>();
  tw::LoadSettings(*store, environment);
  Listing listing;
  tw::ListLoadedValues(*store, environment, listing);
  return listing.text;
}

// A folder of this process's own in the temporary folder, for the one file.
struct ScratchFiles {
  ScratchFiles() { std::filesystem::create_directories(root); }
  ~ScratchFiles() { std::filesystem::remove_all(root); }  // removes links, never follows them
  std::filesystem::path root =
      std::filesystem::temp_directory_path() / ("tw-fuzz-backup-" + std::to_string(getpid()));
  tw::FolderFileSystem files{root};
};

tw::FolderFileSystem& Files() {
  static ScratchFiles scratch;
  return scratch.files;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tw::MemoryRegistry registry;
  tw::MemoryLocale locale;
  tw::CategoryData lists;
  tw::MakeDefaultFilters(lists.filters);
  tw::SettingsTextInput in = tw::SettingsTextInput::FromBytes({data, size});
  tw::TreeSnapshot given;
  if (tw::ReadSnapshot(in, tw::kProductKey, given)) tw::RestoreSnapshot(registry, tw::kProductKey, given);
  tw::ImportSettings(in, registry, lists);
  std::u16string before = LoadedValues(registry, locale, Files());

  if (tw::BackUpSettings({registry, locale, Files()}, lists, u"") != tw::kNoMessage) std::abort();
  std::vector<std::uint8_t> backup;
  if (!Files().ReadAll(std::u16string(u"\\") + std::u16string(tw::kSettingsBackupName), backup)) std::abort();
  tw::MemoryRegistry restored;
  tw::SettingsTextInput again = tw::SettingsTextInput::FromBytes(backup);
  if (tw::ImportSettings(again, restored, lists) != 1) std::abort();
  if (LoadedValues(restored, locale, Files()) != before) std::abort();

  tw::MemoryRegistry exact;
  tw::TreeSnapshot taken;
  if (!tw::ReadSnapshot(again, tw::kProductKey, taken) || !tw::RestoreSnapshot(exact, tw::kProductKey, taken))
    std::abort();
  if (tw::TakeSnapshot(exact, tw::kProductKey) != tw::TakeSnapshot(registry, tw::kProductKey)) std::abort();
  if (registry.OpenHandles() != 0 || restored.OpenHandles() != 0 || exact.OpenHandles() != 0) std::abort();
  return 0;
}
