// The settings file and the category list at scale: a tree of 10,000 values
// with 1,000 categories and the 32 filters, and a categories database of
// 10,000 records. Each group has a baseline doing the bare registry or
// database work that the operation cannot avoid; tools/bench_ratios.py turns
// the times into ratios.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>

#include "data/categories.h"
#include "data/settings_file.h"
#include "platform/memory/folder_file_system.h"
#include "platform/memory/memory_bitmaps.h"
#include "platform/memory/memory_database.h"
#include "platform/memory/memory_locale.h"
#include "platform/memory/memory_registry.h"

namespace tw {
namespace {

constexpr int kSubkeys = 100, kValuesPerKey = 100, kCategories = 1000, kRecords = 10000;

struct Fixture {
  MemoryRegistry registry;
  CategoryData lists;
  std::string file;

  Fixture() {
    for (int k = 0; k < kSubkeys; ++k) {
      std::u16string path = FormatText(u"%s\\Key%d", {kProductKey, k});
      ScopedKey key(registry, kCurrentUser, path, true);
      for (int v = 0; v < kValuesPerKey; ++v) {
        std::u16string name = FormatText(u"Value%dName", {v});
        if (v % 3 == 0) registry.SetString(key.get(), name, FormatText(u"Text %d of key %d \u00e4\u0436", {v, k}));
        else registry.SetDword(key.get(), name, static_cast<std::uint32_t>(v * 7919 - k));
      }
    }
    for (int c = 0; c < kCategories; ++c) {
      CategoryEntry entry;
      entry.name.Format(u"Category %d", c);
      entry.filterMask = c;
      entry.color = c * 65599;
      lists.categories.entries.push_back(std::move(entry));
    }
    MakeDefaultFilters(lists.filters);
    SettingsTextOutput out;
    ExportAll(registry, kProductKey, lists, out);
    file = out.Bytes();
  }
};

Fixture& Shared() {
  static Fixture fixture;
  return fixture;
}

void EnumerateTree(Registry& registry, RegKey parent, std::u16string_view path, std::int64_t& seen) {
  ScopedKey key(registry, parent, path, false);
  for (std::uint32_t i = 0;; ++i) {
    char16_t name[256];
    std::uint8_t data[256];
    std::uint32_t chars = 256, type = 0, size = sizeof data;
    if (registry.EnumValue(key.get(), i, name, chars, type, data, size) != kRegSuccess) break;
    seen += size;
  }
  for (std::uint32_t i = 0;; ++i) {
    char16_t name[256];
    std::uint32_t chars = 256;
    if (registry.EnumKey(key.get(), i, name, chars) != kRegSuccess) break;
    EnumerateTree(registry, key.get(), std::u16string_view(name, chars), seen);
  }
}

void EnumerateBaseline(benchmark::State& state) {
  Fixture& fixture = Shared();
  for (auto _ : state) {
    std::int64_t seen = 0;
    EnumerateTree(fixture.registry, kCurrentUser, kProductKey, seen);
    benchmark::DoNotOptimize(seen);
  }
  state.SetItemsProcessed(state.iterations() * kSubkeys * kValuesPerKey);
}

void Export(benchmark::State& state) {
  Fixture& fixture = Shared();
  for (auto _ : state) {
    SettingsTextOutput out;
    ExportAll(fixture.registry, kProductKey, fixture.lists, out);
    benchmark::DoNotOptimize(out.Bytes().data());
  }
  state.SetItemsProcessed(state.iterations() * kSubkeys * kValuesPerKey);
}

// The values as the import ends up writing them, set one by one.
void SetValuesBaseline(benchmark::State& state) {
  Fixture& fixture = Shared();
  struct Pending {
    std::u16string path, name;
    std::uint32_t type;
    std::vector<std::uint8_t> data;
  };
  std::vector<Pending> values;
  for (int k = 0; k < kSubkeys; ++k) {
    std::u16string path = FormatText(u"%s\\Key%d", {kProductKey, k});
    ScopedKey key(fixture.registry, kCurrentUser, path, false);
    for (std::uint32_t i = 0;; ++i) {
      char16_t name[256];
      std::vector<std::uint8_t> data(256);
      std::uint32_t chars = 256, type = 0, size = 256;
      if (fixture.registry.EnumValue(key.get(), i, name, chars, type, data.data(), size) != kRegSuccess) break;
      data.resize(size);
      values.push_back({path, std::u16string(name, chars), type, std::move(data)});
    }
  }
  for (auto _ : state) {
    MemoryRegistry registry;
    ScopedKey key(registry);
    const std::u16string* open = nullptr;
    for (const Pending& value : values) {
      if (open == nullptr || *open != value.path) {
        key.Open(kCurrentUser, value.path, true);
        open = &value.path;
      }
      registry.Set(key.get(), value.name, value.type, value.data.data(), static_cast<std::uint32_t>(value.data.size()));
    }
  }
  state.SetItemsProcessed(state.iterations() * kSubkeys * kValuesPerKey);
}

void Import(benchmark::State& state) {
  Fixture& fixture = Shared();
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(fixture.file.data());
  for (auto _ : state) {
    MemoryRegistry registry;
    SettingsTextInput in = SettingsTextInput::FromBytes({bytes, fixture.file.size()});
    // Importing sets the lists to what they hold already.
    if (!ImportSettings(in, registry, fixture.lists)) state.SkipWithError("import failed");
  }
  state.SetItemsProcessed(state.iterations() * kSubkeys * kValuesPerKey);
}

struct CategoryFixture {
  std::filesystem::path root = std::filesystem::temp_directory_path() / "tw-bench-categories";
  FolderFileSystem files{root};
  MemoryObjectStore database;
  MemoryRegistry registry;
  MemoryLocale locale;
  MemoryBitmaps bitmaps{files};

  CategoryFixture() {
    std::filesystem::create_directories(root / "Icons");
    std::vector<DatabaseRecord> records;
    for (int i = 0; i < kRecords; ++i) {
      // Names in no particular order, a few equal but for case.
      std::u16string name = FormatText(u"%s %d", {i % 7 == 0 ? u"project" : u"Project", (i * 7919) % kRecords});
      records.push_back({{PropertyId(0x4001, kCeString), 0, name}, {PropertyId(0x4002, kCeI2), i % 30000, {}}});
    }
    database.databases[std::u16string(kCategoriesDatabase)] = std::move(records);
    ScopedKey key(registry, kCurrentUser, kCategoriesKey.path, true);
    for (int i = 0; i < kRecords; i += 10) registry.SetDword(key.get(), FormatText(u"CatColor.Project %d", {i}), i);
  }
  ~CategoryFixture() { std::filesystem::remove_all(root); }
};

void ReadAndSortBaseline(benchmark::State& state) {
  CategoryFixture fixture;
  for (auto _ : state) {
    auto cursor = fixture.database.Open(kCategoriesDatabase);
    cursor->SeekToBeginning();
    const std::uint32_t asked[] = {PropertyId(0x4001, kCeString), PropertyId(0x4002, kCeI2)};
    std::vector<PropertyValue> values;
    std::vector<std::u16string> names;
    while (cursor->ReadRecord(asked, values)) names.push_back(values[0].text);
    std::stable_sort(names.begin(), names.end(),
                     [&](const auto& a, const auto& b) { return fixture.locale.CompareIgnoreCase(a, b) < 0; });
    benchmark::DoNotOptimize(names.data());
  }
  state.SetItemsProcessed(state.iterations() * kRecords);
}

void LoadCategoryList(benchmark::State& state) {
  CategoryFixture fixture;
  CategoryData lists;
  CategoryPlatform platform{fixture.registry, fixture.locale, fixture.files, fixture.database, fixture.bitmaps};
  for (auto _ : state) LoadCategories(lists, platform, u"\\Icons", u"\\");
  state.SetItemsProcessed(state.iterations() * kRecords);
}

BENCHMARK(EnumerateBaseline)->Name("export_10000_values/baseline_enumerate")->Unit(benchmark::kMillisecond);
BENCHMARK(Export)->Name("export_10000_values/export_all")->Unit(benchmark::kMillisecond);
BENCHMARK(SetValuesBaseline)->Name("import_10000_values/baseline_set_values")->Unit(benchmark::kMillisecond);
BENCHMARK(Import)->Name("import_10000_values/import")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAndSortBaseline)->Name("categories_10000/baseline_read_and_sort")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadCategoryList)->Name("categories_10000/load_categories")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tw
