#include "platform/win32/win32_file_system.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

#include "platform/win32/wide.h"

namespace tw {
namespace {

// Readers of line files ask for one byte at a time; the handle is read a
// block at a time so that each byte is not a system call.
class HandleFile : public File {
 public:
  explicit HandleFile(HANDLE handle) : handle_(handle) {}
  ~HandleFile() override { CloseHandle(handle_); }
  std::size_t Read(void* buffer, std::size_t size) override {
    auto* out = static_cast<std::uint8_t*>(buffer);
    std::size_t done = 0;
    while (done < size) {
      if (next_ == filled_ && !Fill()) break;
      std::size_t n = std::min(size - done, filled_ - next_);
      std::memcpy(out + done, block_ + next_, n);
      next_ += n;
      done += n;
    }
    return done;
  }
  bool Write(const void* data, std::size_t size) override {
    DWORD written = 0;
    return WriteFile(handle_, data, static_cast<DWORD>(size), &written, nullptr) && written == size;
  }
  bool Rewind() override {
    next_ = filled_ = 0;
    return SetFilePointer(handle_, 0, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER;
  }

 private:
  bool Fill() {
    DWORD got = 0;
    next_ = filled_ = 0;
    if (!ReadFile(handle_, block_, sizeof block_, &got, nullptr)) return false;
    filled_ = got;
    return got > 0;
  }

  HANDLE handle_;
  std::uint8_t block_[4096];
  std::size_t next_ = 0, filled_ = 0;
};

std::unique_ptr<File> Wrap(HANDLE handle) {
  return handle == INVALID_HANDLE_VALUE ? nullptr : std::make_unique<HandleFile>(handle);
}

}  // namespace

std::unique_ptr<File> Win32FileSystem::OpenRead(std::u16string_view path) {
  std::wstring name = ToWide(path);
  return Wrap(CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::unique_ptr<File> Win32FileSystem::Create(std::u16string_view path, bool failIfExists) {
  std::wstring name = ToWide(path);
  return Wrap(CreateFileW(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                          failIfExists ? CREATE_NEW : CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool Win32FileSystem::Delete(std::u16string_view path) {
  return DeleteFileW(ToWide(path).c_str()) != 0;
}

bool Win32FileSystem::MakeDirectory(std::u16string_view path) {
  return CreateDirectoryW(ToWide(path).c_str(), nullptr) != 0;
}

bool Win32FileSystem::Copy(std::u16string_view from, std::u16string_view to, bool failIfExists) {
  return CopyFileW(ToWide(from).c_str(), ToWide(to).c_str(), failIfExists) != 0;
}

bool Win32FileSystem::Exists(std::u16string_view path) {
  return GetFileAttributesW(ToWide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::vector<DirectoryEntry> Win32FileSystem::List(std::u16string_view folder, std::u16string_view pattern) {
  std::vector<DirectoryEntry> entries;
  std::wstring search = ToWide(folder) + L"\\" + ToWide(pattern);
  WIN32_FIND_DATAW found;
  HANDLE find = FindFirstFileW(search.c_str(), &found);
  if (find == INVALID_HANDLE_VALUE) return entries;
  do {
    std::wstring_view name = found.cFileName;
    if (name == L"." || name == L"..") continue;
    entries.push_back({ToU16(name), found.dwFileAttributes});
  } while (FindNextFileW(find, &found));
  FindClose(find);
  return entries;
}

namespace {

WriteFailure FailureOf(DWORD error) {
  return error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL ? WriteFailure::NoRoom : WriteFailure::Other;
}

// CREATE_NEW will not open through a link left at the fresh name.
WriteFailure WriteFresh(const std::wstring& name, const void* data, std::size_t size) {
  DeleteFileW(name.c_str());
  HANDLE file = CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return FailureOf(GetLastError());
  DWORD written = 0;
  bool whole = size == 0 || (WriteFile(file, data, static_cast<DWORD>(size), &written, nullptr) && written == size);
  DWORD error = whole ? ERROR_SUCCESS : GetLastError();
  if (!CloseHandle(file) && whole) {
    whole = false;
    error = GetLastError();
  }
  if (whole) return WriteFailure::None;
  DeleteFileW(name.c_str());
  return FailureOf(error);
}

}  // namespace

WriteFailure Win32FileSystem::Replace(std::u16string_view path, const void* data, std::size_t size) {
  std::wstring name = ToWide(path), fresh = name + L".new";
  DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)))
    return WriteFailure::LinkInTheWay;
  // Windows will not move a file over a read-only one; Wine would.
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY)) return WriteFailure::Other;
  if (WriteFailure failure = WriteFresh(fresh, data, size); failure != WriteFailure::None) return failure;
  if (MoveFileExW(fresh.c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING)) return WriteFailure::None;
  DWORD error = GetLastError();
  DeleteFileW(fresh.c_str());
  return FailureOf(error);
}

}  // namespace tw
