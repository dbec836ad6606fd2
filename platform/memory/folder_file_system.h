// Device paths mapped below a host folder: "\a\b.txt" is root/a/b.txt.
#pragma once

#include <filesystem>

#include "platform/file_system.h"

namespace tw {

class FolderFileSystem : public FileSystem {
 public:
  explicit FolderFileSystem(std::filesystem::path root);

  std::unique_ptr<File> OpenRead(std::u16string_view path) override;
  std::unique_ptr<File> Create(std::u16string_view path, bool failIfExists) override;
  bool Delete(std::u16string_view path) override;
  bool MakeDirectory(std::u16string_view path) override;
  bool Copy(std::u16string_view from, std::u16string_view to, bool failIfExists) override;
  bool Exists(std::u16string_view path) override;
  std::vector<DirectoryEntry> List(std::u16string_view folder, std::u16string_view pattern) override;
  WriteFailure Replace(std::u16string_view path, const void* data, std::size_t size) override;

  std::filesystem::path HostPath(std::u16string_view devicePath) const;
  const std::filesystem::path& Root() const { return root_; }

 private:
  std::filesystem::path root_;
};

}  // namespace tw
