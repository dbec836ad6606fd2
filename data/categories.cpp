#include "data/categories.h"

#include <algorithm>
#include <unordered_set>

#include "base/text.h"

#include "platform/miss_caching_registry.h"

namespace tw {
namespace {

constexpr std::uint32_t kNameProperty = PropertyId(0x4001, kCeString);
constexpr std::uint32_t kIdProperty = PropertyId(0x4002, kCeI2);
constexpr std::u16string_view kColorPrefix = u"CatColor.";
constexpr std::u16string_view kFilterPrefix = u"CatFilter.";

// One buffer for every value name of a pass: a load builds 20,000 of them.
class ValueNames {
 public:
  const std::u16string& Of(std::u16string_view prefix, const CategoryEntry& entry) {
    name_.assign(prefix);
    name_ += entry.name.View();
    return name_;
  }

 private:
  std::u16string name_;
};

// Records without a usable name or id are not categories.
bool EntryFromRecord(const std::vector<PropertyValue>& values, CategoryEntry& entry) {
  const PropertyValue& name = values[0];
  const PropertyValue& id = values[1];
  if (!name.found || name.type != kCeString || name.text.empty()) return false;
  entry.id = id.found && id.type == kCeI2 ? static_cast<std::int16_t>(id.number) : -1;
  if (entry.id == -1) return false;
  entry.name.Assign(name.text);
  return true;
}

std::vector<CategoryEntry> ReadDatabase(ObjectStore& database) {
  std::vector<CategoryEntry> entries;
  auto cursor = database.Open(kCategoriesDatabase);
  if (!cursor || !cursor->SeekToBeginning()) return entries;
  const std::uint32_t asked[] = {kNameProperty, kIdProperty};
  std::vector<PropertyValue> values;
  while (cursor->ReadRecord(asked, values)) {
    CategoryEntry entry;
    if (EntryFromRecord(values, entry)) entries.push_back(std::move(entry));
  }
  return entries;
}

// Only a REG_DWORD counts: a four-byte string or binary value is no colour
// or mask, and anything else leaves the field as it is.
void ReadAttribute(Registry& registry, RegKey key, const std::u16string& name, std::uint32_t& field) {
  std::uint32_t value = 0, size = sizeof value, type = 0;
  if (registry.Query(key, name, type, &value, size) == kRegSuccess && type == kRegDword && size == sizeof value)
    field = value;
}

void WriteAttribute(Registry& registry, RegKey key, const std::u16string& name, std::uint32_t value,
                    bool unset) {
  if (unset) registry.DeleteValue(key, name);
  else registry.SetDword(key, name, value);
}

// A category usually has no bitmap, and probing each missing file is a
// file-system round trip. One listing of the folder rules out the plain
// ASCII names it lacks; a name of another script, or one reaching into a
// sub-folder, is still probed, since only the file system knows how those
// fold and resolve.
class BitmapFileIndex {
 public:
  BitmapFileIndex(FileSystem& files, std::u16string_view folder) {
    std::u16string folded;
    for (const DirectoryEntry& entry : files.List(folder, u"*.bmp"))
      if (!entry.IsDirectory() && FoldAsciiName(entry.name, folded)) names_.insert(folded);
  }

  bool MayHold(std::u16string_view category) const {
    std::u16string folded;
    if (!FoldAsciiName(category, folded) || folded.find_first_of(u"\\/:") != std::u16string::npos) return true;
    return names_.contains(folded + u".bmp");
  }

 private:
  std::unordered_set<std::u16string> names_;
};

}  // namespace

CategoryEntry* CategoryList::FindAtY(std::int32_t y) {
  for (CategoryEntry& entry : entries)
    if (y >= entry.rowTop && y <= entry.rowBottom) return &entry;
  return nullptr;
}

CategoryEntry* CategoryList::FindName(std::u16string_view name) {
  for (CategoryEntry& entry : entries)
    if (entry.name == name) return &entry;
  return nullptr;
}

std::u16string CategoryBitmapPath(std::u16string_view iconsFolder, std::u16string_view name) {
  return FormatText(u"%s\\%s.bmp", {iconsFolder, name}, WideString::kMaxLength);
}

void LoadCategories(CategoryData& data, const CategoryPlatform& platform,
                    std::u16string_view iconsFolder, std::u16string_view filtersFolder) {
  data.categories.Clear();
  data.filters.entries.clear();
  std::vector<CategoryEntry> entries = ReadDatabase(platform.database);
  std::stable_sort(entries.begin(), entries.end(), [&](const CategoryEntry& a, const CategoryEntry& b) {
    return platform.locale.CompareIgnoreCase(a.name.View(), b.name.View()) < 0;
  });
  data.categories.entries = std::move(entries);
  BitmapFileIndex bitmapFiles(platform.files, iconsFolder);
  for (CategoryEntry& entry : data.categories.entries) {
    if (!bitmapFiles.MayHold(entry.name.View())) continue;
    BitmapHandle handle = platform.bitmaps.Load(CategoryBitmapPath(iconsFolder, entry.name.View()));
    entry.bitmap = Bitmap(platform.bitmaps, handle);
  }
  // Categories without a colour or a filter have no value: the key is listed once.
  MissCachingRegistry registry(platform.registry);
  ValueNames names;
  {
    ScopedKey key(registry, kCurrentUser, kCategoriesKey.path, true);
    for (CategoryEntry& entry : data.categories.entries)
      ReadAttribute(registry, key.get(), names.Of(kColorPrefix, entry), entry.color);
  }
  {
    ScopedKey key(registry, kCurrentUser, kCategoriesKey.path, true);
    for (CategoryEntry& entry : data.categories.entries)
      ReadAttribute(registry, key.get(), names.Of(kFilterPrefix, entry), entry.filterMask);
  }
  ReadFilters(data.filters, platform.files, filtersFolder);
}

void SaveCategoryAttributes(const CategoryList& categories, Registry& registry) {
  ScopedKey key(registry, kCurrentUser, kCategoriesKey.path, true);
  ValueNames names;
  for (const CategoryEntry& entry : categories.entries) {
    WriteAttribute(registry, key.get(), names.Of(kColorPrefix, entry), entry.color, entry.color == kNoCategoryColor);
    WriteAttribute(registry, key.get(), names.Of(kFilterPrefix, entry), entry.filterMask,
                   entry.filterMask == 0);
  }
}

}  // namespace tw
