// A walk through the device's folders for the file and folder chooser: one
// folder at a time, its subfolders first and then (when choosing a file) its
// files, each group in the user's order of names, ignoring case. Paths are
// device paths: "\" is the root, "\My Documents\Notes" a folder below it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/locale.h"

namespace tw {

enum class BrowseFor { File, Folder };

struct BrowseEntry {
  std::u16string name;
  bool isFolder = false;
};

class FolderBrowser {
 public:
  // capacity: the characters of the caller's buffer, its terminator included;
  // no path that would not fit in it is ever opened. Start or Open lists.
  FolderBrowser(FileSystem& files, Locale& locale, BrowseFor target, std::size_t capacity);

  // Opens the deepest existing folder on the way to `path` (a folder, or a
  // file whose folder is meant), the root when none is found.
  void Start(std::u16string_view path);
  // Shows a folder; false, leaving the current one, when its path would not fit.
  bool Open(std::u16string_view folder);
  // Opens the folder above; false at the root.
  bool Up();

  bool AtRoot() const { return folder_ == u"\\"; }
  const std::u16string& Folder() const { return folder_; }
  const std::vector<BrowseEntry>& Entries() const { return entries_; }
  BrowseFor Target() const { return target_; }
  std::u16string PathOf(const BrowseEntry& entry) const;
  bool Fits(std::u16string_view path) const { return path.size() < capacity_; }

 private:
  // The name of the parent's subfolder that matches, ignoring case; empty if none.
  std::u16string FolderNamed(std::u16string_view parent, std::u16string_view name);
  void List();

  FileSystem& files_;
  Locale& locale_;
  BrowseFor target_;
  std::size_t capacity_;
  std::u16string folder_ = u"\\";
  std::vector<BrowseEntry> entries_;
};

// "\a\b" from "a\\b\", "\a\.\b" or "\a\c\..\b"; "\" for the root.
std::u16string NormaliseDevicePath(std::u16string_view path);
// The folder above a normalised path; the root is its own parent.
std::u16string ParentFolder(std::u16string_view path);

}  // namespace tw
