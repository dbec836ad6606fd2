// The names a folder holds, listed once, so that looking for many files in
// it costs no failed open each (under Wine, a round trip to the server and a
// search of the folder). Only ASCII names are ruled out: a folder holding a
// name in another script rules nothing out, since the file system folds its
// case by rules of its own.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace tw {

class FolderListing {
 public:
  FolderListing(FileSystem& files, std::u16string_view folder);

  // False only when the folder surely holds no entry of that name.
  bool MayHold(std::u16string_view name) const;

 private:
  bool decisive_ = true;
  std::set<std::u16string> names_;  // ASCII-folded
};

}  // namespace tw
