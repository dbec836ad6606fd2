#include "platform/file_system.h"

namespace tw {

bool FileSystem::ReadAll(std::u16string_view path, std::vector<std::uint8_t>& bytes) {
  bytes.clear();
  auto file = OpenRead(path);
  if (!file) return false;
  std::uint8_t chunk[16384];
  while (std::size_t got = file->Read(chunk, sizeof chunk)) bytes.insert(bytes.end(), chunk, chunk + got);
  return true;
}

bool FileSystem::WriteAll(std::u16string_view path, const void* data, std::size_t size) {
  auto file = Create(path, false);
  return file && (size == 0 || file->Write(data, size));
}

}  // namespace tw
