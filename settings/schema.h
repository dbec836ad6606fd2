// The registry schema as data: one table of values per key. Load, save and
// the tests walk these tables; a value's name, type, default and field are
// written here and nowhere else.
#pragma once

#include <cstdint>
#include <span>

#include "base/wide_string.h"
#include "platform/registry.h"
#include "settings/settings_store.h"

namespace tw {

class Locale;

enum class ValueKind : std::uint8_t { Dword, Text, Item };

// How a default is found. Scaled and locale defaults are worked out again at
// save time, so a changed locale or VGA mode makes an unchanged value explicit.
enum class DefaultRule : std::uint8_t {
  Constant,
  Scaled,          // ScaleX(number)
  LocaleClock,     // 0 on a 24-hour locale, else 1
  LocaleFirstDay,  // the locale's first day of the week, 0 = Monday
  ProductFolder,   // the product's folder below Program Files
  CategoryIcons,   // the product's folder + "\CategoryIcons"
};

template <typename Record>
struct FieldSpec {
  const char16_t* name;
  ValueKind kind;
  bool saved;
  DefaultRule rule;
  std::int32_t number;        // constant default, or the 96-dpi value of a scaled one
  const char16_t* text;       // constant default text
  const char16_t* savedText;  // what the saver compares against where that differs
  std::int32_t Record::*dword;
  WideString Record::*string;
  SettingItem Record::*item;
};

using ValueSpec = FieldSpec<SettingsStore>;
using TabValueSpec = FieldSpec<TabEntry>;
inline constexpr bool kNotSaved = false;

template <typename Record>
constexpr FieldSpec<Record> Dword(const char16_t* name, std::int32_t Record::*field,
                                  std::int32_t value, bool saved = true) {
  return {name, ValueKind::Dword, saved, DefaultRule::Constant, value, nullptr, nullptr, field, nullptr, nullptr};
}
constexpr ValueSpec ScaledDword(const char16_t* name, std::int32_t SettingsStore::*field,
                                std::int32_t at96Dpi) {
  return {name, ValueKind::Dword, true, DefaultRule::Scaled, at96Dpi, nullptr, nullptr, field, nullptr, nullptr};
}
constexpr ValueSpec LocaleDword(const char16_t* name, std::int32_t SettingsStore::*field, DefaultRule rule) {
  return {name, ValueKind::Dword, true, rule, 0, nullptr, nullptr, field, nullptr, nullptr};
}
template <typename Record>
constexpr FieldSpec<Record> Text(const char16_t* name, WideString Record::*field,
                                 const char16_t* value, bool saved = true) {
  return {name, ValueKind::Text, saved, DefaultRule::Constant, 0, value, nullptr, nullptr, field, nullptr};
}
constexpr ValueSpec FolderText(const char16_t* name, WideString SettingsStore::*field,
                               DefaultRule rule, bool saved) {
  return {name, ValueKind::Text, saved, rule, 0, u"", nullptr, nullptr, field, nullptr};
}
// A text whose saver compares against another default than its loader uses.
constexpr ValueSpec SkewedText(const char16_t* name, WideString SettingsStore::*field,
                               const char16_t* loadDefault, const char16_t* saveDefault) {
  return {name, ValueKind::Text, true, DefaultRule::Constant, 0, loadDefault, saveDefault, nullptr, field, nullptr};
}
constexpr ValueSpec Item(const char16_t* name, SettingItem SettingsStore::*field, std::int32_t value) {
  return {name, ValueKind::Item, true, DefaultRule::Constant, value, nullptr, nullptr, nullptr, nullptr, field};
}

struct FontSpec {
  const char16_t* name;
  FontRecord SettingsStore::*field;
  bool bold;
  bool strikeOut;       // the loader's default
  bool savedStrikeOut;  // the saver's default
};

struct SettingsEnvironment;

// Work a key needs beyond its values: validation after the load, rules
// before the save, subkeys after it.
using KeyHook = void (*)(SettingsStore&, const SettingsEnvironment&, RegKey);

struct KeySpec {
  const char16_t* path;  // below HKEY_CURRENT_USER
  std::span<const ValueSpec> values;
  std::span<const FontSpec> fonts = {};
  KeyHook afterLoad = nullptr;
  KeyHook beforeSave = nullptr;
  KeyHook afterSave = nullptr;
};

// The product's keys in load and save order.
std::span<const KeySpec* const> ProductKeys();
std::span<const TabValueSpec> HostedTabValues();

inline constexpr const char16_t* kProductKey = u"Software\\Orvex\\Tidewell";

// Per-key tables, defined beside the rules of their keys.
extern const KeySpec kMainKey, kCalendarKey, kTasksKey, kNotesKey, kMessagesKey, kSEventsKey,
    kCustomPimKey, kFontsKey, kColorsKey, kTabSettingsKey, kCategoriesKey;

}  // namespace tw

namespace tw {
// The seven values of one hosted tab's subkey.
void LoadHostedTab(TabEntry& entry, Registry& registry, RegKey key);
void SaveHostedTab(const TabEntry& entry, Registry& registry, RegKey key);
}  // namespace tw
