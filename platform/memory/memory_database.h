// Object-store databases held in memory, by name.
#pragma once

#include <map>
#include <string>

#include "platform/database.h"

namespace tw {

class MemoryObjectStore : public ObjectStore {
 public:
  std::map<std::u16string, std::vector<DatabaseRecord>> databases;

  std::unique_ptr<DatabaseCursor> Open(std::u16string_view name) override;
};

}  // namespace tw
