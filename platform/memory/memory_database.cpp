#include "platform/memory/memory_database.h"

namespace tw {

std::unique_ptr<DatabaseCursor> MemoryObjectStore::Open(std::u16string_view name) {
  auto found = databases.find(std::u16string(name));
  return found == databases.end() ? nullptr : MakeRecordCursor(found->second);
}

}  // namespace tw
