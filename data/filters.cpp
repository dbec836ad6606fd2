#include "data/filters.h"

#include "data/line_reader.h"
#include "data/value_lines.h"

namespace tw {
namespace {

constexpr std::u16string_view kHeaderFormat = u"[FILTER%d]";
constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr std::u16string_view kTitle = u"Title", kSensitivity = u"Sensitivity",
                              kVisible = u"Visible", kUncategorized = u"Uncategorized";

std::u16string FilePath(std::u16string_view folder) {
  return FormatText(u"%s\\%s", {folder, kFiltersFileName}, 4096);
}

// The file's value lines hold one parsed number that a line which does not
// parse leaves as it was, as the Today item's reader does.
struct SectionReader {
  explicit SectionReader(File& input) : file(input) {}

  File& file;
  WideString line, name;
  std::int32_t number = 0;

  int NextLine() { return ReadByteLine(file, line); }
  std::int32_t NextNumber() {
    NextLine();
    ParseDwordLine(line.View(), name, number, 10);
    return number;
  }
  FilterEntry NextSection(std::int32_t index) {
    FilterEntry entry;
    entry.index = index;
    NextLine();
    WideString data;
    ParseStringLine(line.View(), name, data);
    entry.title = data;
    entry.sensitivity = NextNumber();
    entry.visible = NextNumber() != 0;
    entry.includeUncategorized = NextNumber() != 0;
    return entry;
  }
};

void AppendLittleEndian(std::vector<std::uint8_t>& bytes, std::u16string_view text) {
  for (char16_t c : text) {
    bytes.push_back(static_cast<std::uint8_t>(c & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(c >> 8));
  }
}

}  // namespace

void FilterList::Insert(FilterEntry entry) {
  auto at = entries.begin();
  if (at != entries.end() && entry.index >= at->index) {
    ++at;
    while (at != entries.end() && at->index < entry.index) ++at;
  }
  entries.insert(at, std::move(entry));
}

FilterEntry* FilterList::FindIndex(std::int32_t index) {
  for (FilterEntry& entry : entries)
    if (entry.index == index) return &entry;
  return nullptr;
}

void MakeDefaultFilters(FilterList& filters) {
  filters.entries.clear();
  for (int i = 0; i < FilterList::kFilterCount; ++i) {
    FilterEntry entry;
    entry.index = i;
    entry.title.Format(u"Filter %d", i + 1);
    filters.Insert(std::move(entry));
  }
}

int ReadFilters(FilterList& filters, FileSystem& files, std::u16string_view folder) {
  filters.entries.clear();
  auto file = files.OpenRead(FilePath(folder));
  int count = 0;
  if (file) {
    SectionReader reader(*file);
    if (reader.NextLine() == 1) {
      int more = 1;
      while (more == 1) {
        if (reader.line.View().find(FormatText(kHeaderFormat, {count})) != std::u16string_view::npos) {
          ++count;
          filters.Insert(reader.NextSection(count));
        }
        more = reader.NextLine();
      }
    }
  }
  if (count == FilterList::kFilterCount) return 1;
  MakeDefaultFilters(filters);
  return 0;
}

void WriteFilters(const FilterList& filters, FileSystem& files, std::u16string_view folder) {
  std::u16string path = FilePath(folder);
  files.Delete(path);
  auto file = files.Create(path, true);
  if (!file) return;
  std::vector<std::uint8_t> bytes;
  auto line = [&](std::u16string_view format, std::initializer_list<FormatArg> args) {
    AppendLittleEndian(bytes, FormatText(format, args, WideString::kMaxLength));
    AppendLittleEndian(bytes, kLineEnd);
  };
  int n = 0;
  for (const FilterEntry& filter : filters.entries) {
    line(kHeaderFormat, {n++});
    line(kStringLineFormat, {kTitle, filter.title.View()});
    line(kDwordLineFormat, {kSensitivity, filter.sensitivity});
    line(kDwordLineFormat, {kVisible, filter.visible ? 1 : 0});
    line(kDwordLineFormat, {kUncategorized, filter.includeUncategorized ? 1 : 0});
  }
  file->Write(bytes.data(), bytes.size());
}

}  // namespace tw
