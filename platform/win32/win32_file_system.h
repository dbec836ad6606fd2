#pragma once

#include "platform/file_system.h"

namespace tw {

// Device paths go to the file API unchanged; under Wine a path without a
// drive resolves against the current drive of the prefix.
class Win32FileSystem : public FileSystem {
 public:
  std::unique_ptr<File> OpenRead(std::u16string_view path) override;
  std::unique_ptr<File> Create(std::u16string_view path, bool failIfExists) override;
  bool Delete(std::u16string_view path) override;
  bool MakeDirectory(std::u16string_view path) override;
  bool Copy(std::u16string_view from, std::u16string_view to, bool failIfExists) override;
  bool Exists(std::u16string_view path) override;
  std::vector<DirectoryEntry> List(std::u16string_view folder, std::u16string_view pattern) override;
  WriteFailure Replace(std::u16string_view path, const void* data, std::size_t size) override;
};

}  // namespace tw
