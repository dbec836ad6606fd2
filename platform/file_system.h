// Files by device path ("\Program Files\Orvex\Tidewell\..."). On Windows the
// path goes to the file API as it stands; the in-memory stand-in maps it below
// a folder of the host.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tw {

class File {
 public:
  virtual ~File() = default;
  // Returns the number of bytes read; 0 at the end or on failure.
  virtual std::size_t Read(void* buffer, std::size_t size) = 0;
  virtual bool Write(const void* data, std::size_t size) = 0;
  virtual bool Rewind() = 0;
};

// Attribute bits of a directory entry, with the values of the device's
// FILE_ATTRIBUTE_* constants.
inline constexpr std::uint32_t kAttributeReadOnly = 0x01, kAttributeHidden = 0x02,
                               kAttributeSystem = 0x04, kAttributeDirectory = 0x10,
                               kAttributeArchive = 0x20;

struct DirectoryEntry {
  std::u16string name;  // without the folder
  std::uint32_t attributes = 0;

  bool IsDirectory() const { return (attributes & kAttributeDirectory) != 0; }
};

// Why a file could not be written whole.
enum class WriteFailure { None, NoRoom, LinkInTheWay, Other };

class FileSystem {
 public:
  virtual ~FileSystem() = default;
  // Open an existing file for reading, shared for read and write; null if it cannot be.
  virtual std::unique_ptr<File> OpenRead(std::u16string_view path) = 0;
  // Create a file for writing; with failIfExists an existing file is not touched.
  virtual std::unique_ptr<File> Create(std::u16string_view path, bool failIfExists) = 0;
  virtual bool Delete(std::u16string_view path) = 0;
  virtual bool MakeDirectory(std::u16string_view path) = 0;
  virtual bool Copy(std::u16string_view from, std::u16string_view to, bool failIfExists) = 0;
  virtual bool Exists(std::u16string_view path) = 0;
  // FindFirstFileW/FindNextFileW over "folder\pattern" (pattern "*" or "*.ext"),
  // without "." and "..", in the order the file system gives.
  virtual std::vector<DirectoryEntry> List(std::u16string_view folder,
                                           std::u16string_view pattern) = 0;

  // Writes the file under a fresh name beside it, then moves that over path,
  // so a failed write leaves the former file whole. A link or a folder at
  // path is refused rather than written through or replaced, and so is a
  // read-only file.
  virtual WriteFailure Replace(std::u16string_view path, const void* data, std::size_t size) = 0;

  // The whole file, or false if it cannot be opened.
  bool ReadAll(std::u16string_view path, std::vector<std::uint8_t>& bytes);
  bool WriteAll(std::u16string_view path, const void* data, std::size_t size);
};

}  // namespace tw
