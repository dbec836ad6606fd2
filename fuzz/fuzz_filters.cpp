// TWFilters.txt as the Today item or a user left it: the result is exactly
// 32 filters, numbered 1..32 when read and 0..31 when the defaults stand.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "data/filters.h"
#include "platform/memory/memory_file.h"

namespace {

// Serves the one file under test; everything else is absent.
class OneFileSystem : public tw::FileSystem {
 public:
  OneFileSystem(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
  std::unique_ptr<tw::File> OpenRead(std::u16string_view) override {
    return std::make_unique<tw::MemoryFile>(data_, size_);
  }
  std::unique_ptr<tw::File> Create(std::u16string_view, bool) override { return nullptr; }
  bool Delete(std::u16string_view) override { return false; }
  bool MakeDirectory(std::u16string_view) override { return false; }
  bool Copy(std::u16string_view, std::u16string_view, bool) override { return false; }
  bool Exists(std::u16string_view) override { return true; }
  std::vector<tw::DirectoryEntry> List(std::u16string_view, std::u16string_view) override { return {}; }
  tw::WriteFailure Replace(std::u16string_view, const void*, std::size_t) override { return tw::WriteFailure::Other; }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  OneFileSystem files(data, size);
  tw::FilterList filters;
  int result = tw::ReadFilters(filters, files, u"\\Folder");
  if (filters.entries.size() != tw::FilterList::kFilterCount) std::abort();
  int firstIndex = result == 1 ? 1 : 0;
  for (int i = 0; i < tw::FilterList::kFilterCount; ++i)
    if (filters.entries[i].index != firstIndex + i) std::abort();
  return 0;
}
