// One LoadSettings + SaveSettings round trip against the in-memory registry,
// with a populated tree (non-default values in every key and hosted tabs).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include "data/skin.h"
#include "platform/memory/folder_file_system.h"
#include "platform/memory/memory_locale.h"
#include "platform/memory/memory_registry.h"
#include "settings/settings_io.h"

namespace tw {
namespace {

void LoadSaveRoundTrip(benchmark::State& state) {
  MemoryRegistry registry;
  MemoryLocale locale;
  FolderFileSystem files(std::filesystem::temp_directory_path() / "tw-bench-empty");
  SettingsEnvironment environment{registry, locale, files, 96, ReadSelectedSkin};
  auto store = std::make_unique<SettingsStore>();
  LoadSettings(*store, environment);
  store->OnClick = 2;
  store->dNumOfDays = 14;
  store->CustomDateFrmtStart.Assign(u"Due: ");
  store->FontCalTentative.font.lfItalic = 1;
  store->ClrStatusBusy = 0xFF;
  for (const char16_t* name : {u"Weather", u"Battery", u"Contacts"}) {
    TabEntry& tab = store->tabs.emplace_back();
    tab.name.Assign(name);
    tab.enabled = 1;
    tab.library.Assign(u"\\Windows\\plugin.dll");
  }
  SaveSettings(*store, environment);
  for (auto _ : state) {
    LoadSettings(*store, environment);
    SaveSettings(*store, environment);
    benchmark::DoNotOptimize(store->OnClick);
  }
}
BENCHMARK(LoadSaveRoundTrip)->Name("BM_LoadSaveRoundTrip")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tw
