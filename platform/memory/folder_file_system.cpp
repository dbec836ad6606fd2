#include "platform/memory/folder_file_system.h"

#include <cerrno>
#include <cstdio>

#include "base/text.h"

namespace tw {
namespace {

class HostFile : public File {
 public:
  explicit HostFile(std::FILE* file) : file_(file) {}
  ~HostFile() override { std::fclose(file_); }
  std::size_t Read(void* buffer, std::size_t size) override { return std::fread(buffer, 1, size, file_); }
  bool Write(const void* data, std::size_t size) override {
    return std::fwrite(data, 1, size, file_) == size;
  }
  bool Rewind() override { return std::fseek(file_, 0, SEEK_SET) == 0; }

 private:
  std::FILE* file_;
};

bool MatchesPattern(std::u16string_view name, std::u16string_view pattern) {
  if (pattern == u"*" || pattern == u"*.*") return true;
  if (pattern.size() > 1 && pattern[0] == u'*') {
    std::u16string_view tail = pattern.substr(1);
    return name.size() >= tail.size() && EqualsIgnoreCase(name.substr(name.size() - tail.size()), tail);
  }
  return EqualsIgnoreCase(name, pattern);
}

std::FILE* OpenHost(const std::filesystem::path& path, bool write) {
#ifdef _WIN32
  return _wfopen(path.c_str(), write ? L"wb" : L"rb");
#else
  return std::fopen(path.c_str(), write ? "wb" : "rb");
#endif
}

// The attributes Wine gives a host entry, so that both builds list alike: a
// folder is "directory" and a file "archive"; a name with a leading dot is
// hidden, and an entry that nobody may write to is read-only.
bool NobodyMayWrite(const std::filesystem::file_status& status) {
  using std::filesystem::perms;
  return (status.permissions() & (perms::owner_write | perms::group_write | perms::others_write)) == perms::none;
}

std::uint32_t HostAttributes(const std::filesystem::directory_entry& item, std::u16string_view name) {
  std::error_code error;
  std::filesystem::file_status status = item.status(error);
  std::uint32_t attributes = std::filesystem::is_directory(status) ? kAttributeDirectory : kAttributeArchive;
  if (NobodyMayWrite(status)) attributes |= kAttributeReadOnly;
  if (name.starts_with(u'.')) attributes |= kAttributeHidden;
  return attributes;
}

}  // namespace

FolderFileSystem::FolderFileSystem(std::filesystem::path root) : root_(std::move(root)) {}

std::filesystem::path FolderFileSystem::HostPath(std::u16string_view devicePath) const {
  std::filesystem::path path = root_;
  std::size_t start = 0;
  while (start <= devicePath.size()) {
    std::size_t end = devicePath.find(u'\\', start);
    if (end == std::u16string_view::npos) end = devicePath.size();
    std::u16string_view part = devicePath.substr(start, end - start);
    if (!part.empty() && part != u"." && part != u"..") path /= Utf16ToUtf8(part);
    start = end + 1;
  }
  return path;
}

std::unique_ptr<File> FolderFileSystem::OpenRead(std::u16string_view path) {
  std::filesystem::path host = HostPath(path);
  std::error_code error;
  if (!std::filesystem::is_regular_file(host, error)) return nullptr;
  std::FILE* file = OpenHost(host, false);
  return file ? std::make_unique<HostFile>(file) : nullptr;
}

std::unique_ptr<File> FolderFileSystem::Create(std::u16string_view path, bool failIfExists) {
  std::filesystem::path host = HostPath(path);
  std::error_code error;
  if (failIfExists && std::filesystem::exists(host, error)) return nullptr;
  std::FILE* file = OpenHost(host, true);
  return file ? std::make_unique<HostFile>(file) : nullptr;
}

bool FolderFileSystem::Delete(std::u16string_view path) {
  std::error_code error;
  std::filesystem::path host = HostPath(path);
  return std::filesystem::is_regular_file(host, error) && std::filesystem::remove(host, error);
}

bool FolderFileSystem::MakeDirectory(std::u16string_view path) {
  std::error_code error;
  return std::filesystem::create_directory(HostPath(path), error);
}

bool FolderFileSystem::Copy(std::u16string_view from, std::u16string_view to, bool failIfExists) {
  std::error_code error;
  auto options = failIfExists ? std::filesystem::copy_options::none
                              : std::filesystem::copy_options::overwrite_existing;
  return std::filesystem::copy_file(HostPath(from), HostPath(to), options, error);
}

bool FolderFileSystem::Exists(std::u16string_view path) {
  std::error_code error;
  return std::filesystem::exists(HostPath(path), error);
}

std::vector<DirectoryEntry> FolderFileSystem::List(std::u16string_view folder,
                                                   std::u16string_view pattern) {
  std::vector<DirectoryEntry> entries;
  std::error_code error;
  for (const auto& item : std::filesystem::directory_iterator(HostPath(folder), error)) {
    std::u16string name = Utf8ToUtf16(item.path().filename().string());
    if (MatchesPattern(name, pattern)) entries.push_back({name, HostAttributes(item, name)});
  }
  return entries;
}

WriteFailure FolderFileSystem::Replace(std::u16string_view path, const void* data, std::size_t size) {
  std::filesystem::path host = HostPath(path), fresh = host;
  fresh += ".new";
  std::error_code error;
  std::filesystem::file_status status = std::filesystem::symlink_status(host, error);
  if (std::filesystem::is_symlink(status) || std::filesystem::is_directory(status)) return WriteFailure::LinkInTheWay;
  if (std::filesystem::exists(status) && NobodyMayWrite(status)) return WriteFailure::Other;
  std::filesystem::remove(fresh, error);  // a link there goes, never what it points to
  std::FILE* file = OpenHost(fresh, true);
  if (file == nullptr) return WriteFailure::Other;
  bool whole = std::fwrite(data, 1, size, file) == size && std::fflush(file) == 0;
  int written = whole ? 0 : errno;
  if (std::fclose(file) != 0 && whole) {
    whole = false;
    written = errno;
  }
  if (whole) std::filesystem::rename(fresh, host, error);
  if (whole && !error) return WriteFailure::None;
  std::filesystem::remove(fresh, error);
  return written == ENOSPC ? WriteFailure::NoRoom : WriteFailure::Other;
}

}  // namespace tw
