// The settings file from the documents folder or a scheme: any bytes in any
// encoding must import or fail cleanly, and never add or drop list entries.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "data/settings_file.h"
#include "platform/memory/memory_registry.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tw::MemoryRegistry registry;
  tw::CategoryData lists;
  for (auto name : {u"Business", u"Personal", u"\u0414\u043e\u043c"}) {
    tw::CategoryEntry entry;
    entry.name.Assign(name);
    lists.categories.entries.push_back(std::move(entry));
  }
  tw::MakeDefaultFilters(lists.filters);

  tw::SettingsTextInput in = tw::SettingsTextInput::FromBytes({data, size});
  int result = tw::ImportSettings(in, registry, lists);
  if (result != 0 && result != 1) std::abort();
  if (lists.categories.entries.size() != 3 || lists.filters.entries.size() != 32) std::abort();

  // Whatever was imported exports again.
  tw::SettingsTextOutput out;
  tw::ExportAll(registry, tw::kProductKey, lists, out);
  if (registry.OpenHandles() != 0) std::abort();
  return 0;
}
