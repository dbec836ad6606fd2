// The 32 category filters and their file, TWFilters.txt, which the Today
// item reads too: UTF-16 LE without a mark, CR LF line ends, read back with
// the byte line reader.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "base/wide_string.h"
#include "platform/file_system.h"

namespace tw {

struct FilterEntry {
  WideString title;
  std::int32_t sensitivity = 0;
  bool visible = true;
  bool includeUncategorized = false;
  std::int32_t index = 0;
};

// Always kept in ascending order of index.
struct FilterList {
  static constexpr int kFilterCount = 32;
  std::vector<FilterEntry> entries;

  // Before the first entry after the head whose index is not smaller; never
  // before the head unless smaller than the head's.
  void Insert(FilterEntry entry);
  FilterEntry* FindIndex(std::int32_t index);
};

inline constexpr std::u16string_view kFiltersFileName = u"TWFilters.txt";

// Filters read from the file are numbered 1..32, the defaults 0..31; the
// export writes whichever each filter holds and the import matches by it.
void MakeDefaultFilters(FilterList& filters);
// 1 when exactly 32 sections were read; otherwise the defaults and 0.
int ReadFilters(FilterList& filters, FileSystem& files, std::u16string_view folder);
// Replaces the file; nothing is written if it cannot be created.
void WriteFilters(const FilterList& filters, FileSystem& files, std::u16string_view folder);

}  // namespace tw
