#include "data/folder_browser.h"

#include <algorithm>

namespace tw {
namespace {

std::vector<std::u16string> PathParts(std::u16string_view path) {
  std::vector<std::u16string> parts;
  std::size_t start = 0;
  while (start <= path.size()) {
    std::size_t end = std::min(path.find(u'\\', start), path.size());
    std::u16string_view part = path.substr(start, end - start);
    if (part == u"..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != u".") {
      parts.emplace_back(part);
    }
    start = end + 1;
  }
  return parts;
}

// The file system lists the root as the folder without a name.
std::u16string_view ListingName(std::u16string_view folder) { return folder == u"\\" ? u"" : folder; }

}  // namespace

std::u16string NormaliseDevicePath(std::u16string_view path) {
  std::u16string normal;
  for (const std::u16string& part : PathParts(path)) normal += u"\\" + part;
  return normal.empty() ? u"\\" : normal;
}

std::u16string ParentFolder(std::u16string_view path) {
  std::size_t last = path.rfind(u'\\');
  return last == 0 || last == std::u16string_view::npos ? u"\\" : std::u16string(path.substr(0, last));
}

FolderBrowser::FolderBrowser(FileSystem& files, Locale& locale, BrowseFor target, std::size_t capacity)
    : files_(files), locale_(locale), target_(target), capacity_(capacity) {}

void FolderBrowser::Start(std::u16string_view path) {
  // Walks down from the root, taking each folder by the name the file system
  // gives it, so that a start typed in another case opens the real folder.
  std::u16string reached = u"\\";
  for (const std::u16string& part : PathParts(path)) {
    std::u16string name = FolderNamed(reached, part);
    std::u16string next = reached == u"\\" ? u"\\" + name : reached + u"\\" + name;
    if (name.empty() || !Fits(next)) break;
    reached = next;
  }
  Open(reached);
}

bool FolderBrowser::Open(std::u16string_view folder) {
  std::u16string normal = NormaliseDevicePath(folder);
  if (!Fits(normal)) return false;
  folder_ = normal;
  List();
  return true;
}

bool FolderBrowser::Up() { return !AtRoot() && Open(ParentFolder(folder_)); }

std::u16string FolderBrowser::PathOf(const BrowseEntry& entry) const {
  return AtRoot() ? u"\\" + entry.name : folder_ + u"\\" + entry.name;
}

std::u16string FolderBrowser::FolderNamed(std::u16string_view parent, std::u16string_view name) {
  for (DirectoryEntry& entry : files_.List(ListingName(parent), u"*"))
    if (entry.IsDirectory() && locale_.CompareIgnoreCase(entry.name, name) == 0) return std::move(entry.name);
  return {};
}

void FolderBrowser::List() {
  entries_.clear();
  for (DirectoryEntry& found : files_.List(ListingName(folder_), u"*"))
    if (found.IsDirectory() || target_ == BrowseFor::File)
      entries_.push_back({std::move(found.name), found.IsDirectory()});
  std::sort(entries_.begin(), entries_.end(), [this](const BrowseEntry& a, const BrowseEntry& b) {
    if (a.isFolder != b.isFolder) return a.isFolder;
    int order = locale_.CompareIgnoreCase(a.name, b.name);
    return order != 0 ? order < 0 : a.name < b.name;
  });
}

}  // namespace tw
