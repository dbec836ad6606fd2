// Bitmaps that "load" whenever the file exists; counts what is held so tests
// see that every handle is freed.
#pragma once

#include <map>
#include <string>

#include "platform/bitmaps.h"
#include "platform/file_system.h"

namespace tw {

class MemoryBitmaps : public Bitmaps {
 public:
  explicit MemoryBitmaps(FileSystem& files) : files_(files) {}

  BitmapHandle Load(std::u16string_view path) override;
  void Free(BitmapHandle bitmap) override;

  std::size_t Held() const { return paths_.size(); }
  // The file a handle was loaded from; empty for an unknown handle.
  std::u16string PathOf(BitmapHandle bitmap) const;

 private:
  FileSystem& files_;
  std::map<std::uintptr_t, std::u16string> paths_;
  std::uintptr_t next_ = 0x100;
};

}  // namespace tw
