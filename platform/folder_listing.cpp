#include "platform/folder_listing.h"

#include "base/text.h"

namespace tw {

FolderListing::FolderListing(FileSystem& files, std::u16string_view folder) {
  if (folder.empty()) return;  // no folder, no files
  std::u16string folded;
  for (const DirectoryEntry& entry : files.List(folder, u"*")) {
    if (!FoldAsciiName(entry.name, folded)) {
      decisive_ = false;
      return;
    }
    names_.insert(folded);
  }
}

bool FolderListing::MayHold(std::u16string_view name) const {
  std::u16string folded;
  return !decisive_ || !FoldAsciiName(name, folded) || names_.count(folded) != 0;
}

}  // namespace tw
