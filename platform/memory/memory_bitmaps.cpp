#include "platform/memory/memory_bitmaps.h"

namespace tw {

BitmapHandle MemoryBitmaps::Load(std::u16string_view path) {
  if (!files_.OpenRead(path)) return nullptr;
  std::uintptr_t handle = next_++;
  paths_[handle] = std::u16string(path);
  return reinterpret_cast<BitmapHandle>(handle);
}

void MemoryBitmaps::Free(BitmapHandle bitmap) { paths_.erase(reinterpret_cast<std::uintptr_t>(bitmap)); }

std::u16string MemoryBitmaps::PathOf(BitmapHandle bitmap) const {
  auto found = paths_.find(reinterpret_cast<std::uintptr_t>(bitmap));
  return found == paths_.end() ? std::u16string() : found->second;
}

}  // namespace tw
