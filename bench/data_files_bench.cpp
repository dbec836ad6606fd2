// The settings file and the category list at scale: a tree of 10,000 values
// with 1,000 categories and the 32 filters, and a categories database of
// 10,000 records. Each group has a baseline doing the bare registry or
// database work that the operation cannot avoid; tools/bench_ratios.py turns
// the times into ratios.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>

#include "data/categories.h"
#include "data/settings_backup.h"
#include "data/settings_file.h"
#include "platform/memory/folder_file_system.h"
#include "platform/memory/memory_bitmaps.h"
#include "platform/memory/memory_database.h"
#include "platform/memory/memory_locale.h"
#include "platform/memory/memory_registry.h"

namespace tw {
namespace {

constexpr int kSubkeys = 100, kValuesPerKey = 100, kValues = kSubkeys * kValuesPerKey, kRecords = 10000;
constexpr std::uint32_t kAsked[] = {PropertyId(0x4001, kCeString), PropertyId(0x4002, kCeI2)};

struct Value {
  std::u16string name, text;  // no text: a DWORD
  std::uint32_t number;
};

struct Fixture {
  // The tree below the product key, a third of its values strings: what the
  // export reads and the import writes.
  std::vector<std::u16string> paths;
  std::vector<std::vector<Value>> values;  // by key
  MemoryRegistry registry;
  CategoryData lists;
  std::string file;
  // The categories database, with colours for a tenth of its records in a
  // registry of their own.
  MemoryRegistry colors;
  std::filesystem::path root = std::filesystem::temp_directory_path() / "tw-bench-categories";
  FolderFileSystem files{root};
  MemoryObjectStore database;
  MemoryLocale locale;
  MemoryBitmaps bitmaps{files};

  Fixture() {
    for (int k = 0; k < kSubkeys; ++k) {
      paths.push_back(FormatText(u"%s\\Key%d", {kProductKey, k}));
      std::vector<Value>& key = values.emplace_back();
      for (int v = 0; v < kValuesPerKey; ++v)
        key.push_back({FormatText(u"Value%dName", {v}),
                       v % 3 ? u"" : FormatText(u"Text %d of key %d \u00e4\u0436", {v, k}),
                       static_cast<std::uint32_t>(v * 7919 - k)});
    }
    Write(registry);
    for (int c = 0; c < 1000; ++c) {
      CategoryEntry& entry = lists.categories.entries.emplace_back();
      entry.name.Format(u"Category %d", c);
      entry.filterMask = c;
      entry.color = c * 65599;
    }
    MakeDefaultFilters(lists.filters);
    SettingsTextOutput out;
    ExportAll(registry, kProductKey, lists, out);
    file = out.Bytes();

    std::filesystem::create_directories(root / "Icons");
    auto& records = database.databases[std::u16string(kCategoriesDatabase)];
    ScopedKey key(colors, kCurrentUser, kCategoriesKey.path, true);
    for (int i = 0; i < kRecords; ++i) {
      // Names in no particular order, a few equal but for case.
      std::u16string name = FormatText(u"%s %d", {i % 7 == 0 ? u"project" : u"Project", (i * 7919) % kRecords});
      records.push_back({{kAsked[0], 0, name}, {kAsked[1], i % 30000, {}}});
      if (i % 10 == 0) colors.SetDword(key.get(), FormatText(u"CatColor.Project %d", {i}), i);
    }
  }
  ~Fixture() { std::filesystem::remove_all(root); }

  void Write(Registry& target) const {
    for (int k = 0; k < kSubkeys; ++k) {
      ScopedKey key(target, kCurrentUser, paths[k], true);
      for (const Value& v : values[k])
        v.text.empty() ? target.SetDword(key.get(), v.name, v.number) : target.SetString(key.get(), v.name, v.text);
    }
  }
};

Fixture& Shared() {
  static Fixture fixture;
  return fixture;
}

void EnumerateBaseline(benchmark::State& state) {
  Fixture& fixture = Shared();
  for (auto _ : state) {
    std::int64_t seen = 0;
    for (const std::u16string& path : fixture.paths) {
      ScopedKey key(fixture.registry, kCurrentUser, path, false);
      char16_t name[256];
      std::uint8_t data[256];
      for (std::uint32_t i = 0, chars = 256, type = 0, size = 256;
           fixture.registry.EnumValue(key.get(), i, name, chars, type, data, size) == kRegSuccess;
           ++i, chars = size = 256)
        seen += size;
    }
    benchmark::DoNotOptimize(seen);
  }
  state.SetItemsProcessed(state.iterations() * kValues);
}

void Export(benchmark::State& state) {
  Fixture& fixture = Shared();
  for (auto _ : state) {
    SettingsTextOutput out;
    ExportAll(fixture.registry, kProductKey, fixture.lists, out);
    benchmark::DoNotOptimize(out.Bytes().data());
  }
  state.SetItemsProcessed(state.iterations() * kValues);
}

// The values as the import ends up writing them, set one by one.
void SetValuesBaseline(benchmark::State& state) {
  for (auto _ : state) {
    MemoryRegistry registry;
    Shared().Write(registry);
  }
  state.SetItemsProcessed(state.iterations() * kValues);
}

void Import(benchmark::State& state) {
  Fixture& fixture = Shared();
  auto bytes = std::span(reinterpret_cast<const std::uint8_t*>(fixture.file.data()), fixture.file.size());
  for (auto _ : state) {
    MemoryRegistry registry;
    SettingsTextInput in = SettingsTextInput::FromBytes(bytes);
    // Importing sets the lists to what they hold already.
    if (!ImportSettings(in, registry, fixture.lists)) state.SkipWithError("import failed");
  }
  state.SetItemsProcessed(state.iterations() * kValues);
}

// The backup against the export command beside it: both write the whole tree
// to a file; the backup also loads a record and lists what it read.
void ExportFileBaseline(benchmark::State& state) {
  Fixture& fixture = Shared();
  for (auto _ : state) ExportSettingsFile(fixture.registry, fixture.files, fixture.lists, u"");
  state.SetItemsProcessed(state.iterations() * kValues);
}

void BackUp(benchmark::State& state) {
  Fixture& fixture = Shared();
  SettingsEnvironment environment{fixture.registry, fixture.locale, fixture.files};
  for (auto _ : state)
    if (BackUpSettings(environment, fixture.lists, u"") != kNoMessage) state.SkipWithError("backup not written");
  state.SetItemsProcessed(state.iterations() * kValues);
}

void ReadAndSortBaseline(benchmark::State& state) {
  Fixture& fixture = Shared();
  for (auto _ : state) {
    auto cursor = fixture.database.Open(kCategoriesDatabase);
    cursor->SeekToBeginning();
    std::vector<PropertyValue> values;
    std::vector<std::u16string> names;
    while (cursor->ReadRecord(kAsked, values)) names.push_back(values[0].text);
    std::stable_sort(names.begin(), names.end(),
                     [&](const auto& a, const auto& b) { return fixture.locale.CompareIgnoreCase(a, b) < 0; });
    benchmark::DoNotOptimize(names.data());
  }
  state.SetItemsProcessed(state.iterations() * kRecords);
}

void LoadCategoryList(benchmark::State& state) {
  Fixture& fixture = Shared();
  CategoryData lists;
  CategoryPlatform platform{fixture.colors, fixture.locale, fixture.files, fixture.database, fixture.bitmaps};
  for (auto _ : state) LoadCategories(lists, platform, u"\\Icons", u"\\");
  state.SetItemsProcessed(state.iterations() * kRecords);
}

BENCHMARK(EnumerateBaseline)->Name("export_10000_values/baseline_enumerate")->Unit(benchmark::kMillisecond);
BENCHMARK(Export)->Name("export_10000_values/export_all")->Unit(benchmark::kMillisecond);
BENCHMARK(SetValuesBaseline)->Name("import_10000_values/baseline_set_values")->Unit(benchmark::kMillisecond);
BENCHMARK(Import)->Name("import_10000_values/import")->Unit(benchmark::kMillisecond);
BENCHMARK(ExportFileBaseline)->Name("backup_10000_values/baseline_export_file")->Unit(benchmark::kMillisecond);
BENCHMARK(BackUp)->Name("backup_10000_values/backup")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAndSortBaseline)->Name("categories_10000/baseline_read_and_sort")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadCategoryList)->Name("categories_10000/load_categories")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tw
