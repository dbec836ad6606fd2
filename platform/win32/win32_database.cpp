#include "platform/win32/win32_database.h"

#include "platform/win32/win32_file_system.h"

namespace tw {

std::unique_ptr<DatabaseCursor> Win32ObjectStore::Open(std::u16string_view name) {
  Win32FileSystem files;
  std::vector<std::uint8_t> bytes;
  if (!files.ReadAll(name, bytes)) return nullptr;
  std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  return MakeRecordCursor(ParseDatabaseText(text));
}

}  // namespace tw
