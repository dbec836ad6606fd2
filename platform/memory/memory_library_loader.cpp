#include "platform/memory/memory_library_loader.h"

#include <algorithm>

namespace tw {
namespace {

class TableLibrary : public TextLibrary {
 public:
  explicit TableLibrary(MemoryLibraryLoader::Texts texts) : texts_(std::move(texts)) {}

  int Lookup(unsigned id, char16_t* buffer, int capacity) const override {
    auto found = texts_.find(id);
    if (found == texts_.end() || capacity <= 0) return 0;
    int count = std::min(static_cast<int>(found->second.size()), capacity - 1);
    std::copy_n(found->second.begin(), count, buffer);
    buffer[count] = 0;
    return count;
  }

 private:
  MemoryLibraryLoader::Texts texts_;
};

}  // namespace

std::unique_ptr<TextLibrary> MemoryLibraryLoader::Load(std::u16string_view path) {
  auto found = libraries.find(std::u16string(path));
  return found == libraries.end() ? nullptr : std::make_unique<TableLibrary>(found->second);
}

}  // namespace tw
