// The object store stood in for by text files: a database is the file whose
// device path is the database's name ("\Categories Database").
#pragma once

#include "platform/database.h"

namespace tw {

class Win32ObjectStore : public ObjectStore {
 public:
  std::unique_ptr<DatabaseCursor> Open(std::u16string_view name) override;
};

}  // namespace tw
