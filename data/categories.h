// The PIM categories from the device's category database, with what this
// program adds per category: a colour, a filter mask and a bitmap file. One
// process-wide CategoryData holds the category list and the filter list.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "base/wide_string.h"
#include "data/filters.h"
#include "platform/bitmaps.h"
#include "platform/database.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/registry.h"
#include "settings/schema.h"

namespace tw {

inline constexpr std::uint32_t kNoCategoryColor = 0xFFFFFFFF;

struct CategoryEntry {
  WideString name;
  std::uint32_t filterMask = 0;
  std::uint32_t color = kNoCategoryColor;
  Bitmap bitmap;
  std::int32_t id = -1;
  // Where the categories view painted the row, for finding the row under a tap.
  std::int32_t rowTop = 0, rowBottom = 0;
};

// Sorted by name without regard to case; equal names keep database order.
struct CategoryList {
  std::vector<CategoryEntry> entries;

  CategoryEntry* FindAtY(std::int32_t y);
  CategoryEntry* FindName(std::u16string_view name);  // exact, case-sensitive
  void Clear() { entries.clear(); }
};

struct CategoryData {
  CategoryList categories;
  FilterList filters;
};

// What loading the categories reaches beyond the registry.
struct CategoryPlatform {
  Registry& registry;
  Locale& locale;
  FileSystem& files;
  ObjectStore& database;
  Bitmaps& bitmaps;
};

inline constexpr std::u16string_view kCategoriesDatabase = u"\\Categories Database";

// "%s\%s.bmp": the category's own bitmap in the category icons folder.
std::u16string CategoryBitmapPath(std::u16string_view iconsFolder, std::u16string_view name);

// Empties both lists, reads the database (an unreadable one leaves the list
// empty), loads bitmaps, colours and masks, then reads the filter file.
void LoadCategories(CategoryData& data, const CategoryPlatform& platform,
                    std::u16string_view iconsFolder, std::u16string_view filtersFolder);
// "CatColor." and "CatFilter." of every category: set, or deleted when unset.
void SaveCategoryAttributes(const CategoryList& categories, Registry& registry);

}  // namespace tw
