#include "settings/settings_io.h"

#include <type_traits>

#include "base/scaling.h"
#include "base/text.h"
#include "platform/miss_caching_registry.h"
#include "settings/registry_values.h"

namespace tw {
namespace {

constexpr const char16_t* kTodayItemKey = u"Software\\Microsoft\\today\\items\\Tidewell";

// Folders of other PIM programs, read from their own keys.
struct VendorFolder {
  RegKey root;
  const char16_t* key;
  const char16_t* value;
  WideString SettingsStore::*field;
  const char16_t* defaultText;
};

constexpr VendorFolder kAgendaFusion[] = {
    {kLocalMachine, u"SOFTWARE\\Developer One, Inc.\\Agenda Fusion", u"Core.Categories",
     &SettingsStore::AgendaFusionIconsFolder, u"Program Files\\Agenda Fusion\\Icons"},
};
constexpr VendorFolder kPocketInformant[] = {
    {kCurrentUser, u"Software\\WebIS\\PocketInformant", u"IconPath",
     &SettingsStore::PocketInformantIconsFolder, u"My Documents\\WebIS\\Icons"},
    {kCurrentUser, u"Software\\WebIS\\PocketInformant", u"WebIS_Folder",
     &SettingsStore::PocketInformantFolder, u"My Documents"},
};

void LoadInstallFolders(SettingsStore& store, Registry& registry) {
  ScopedKey key(registry, kLocalMachine, kTodayItemKey, false);
  ReadString(registry, u"ProgramFiles", store.ProgramFilesFolder, u"\\Program Files", key.get());
  store.ProductFolder.Format(u"%s\\Orvex\\Tidewell", store.ProgramFilesFolder.View());
  ReadString(registry, u"InstallPath", store.InstallFolder, store.ProgramFilesFolder.View(), key.get());
  store.InstallFolder.Append(u"\\Orvex\\Tidewell");
  store.SkinsFolder.Format(u"%s\\Skins", store.InstallFolder.View());
}

// Each vendor key is opened (and created if missing) once for all its values.
void LoadVendorFolders(SettingsStore& store, Registry& registry, std::span<const VendorFolder> folders) {
  ScopedKey key(registry, folders.front().root, folders.front().key, true);
  for (const VendorFolder& folder : folders)
    ReadString(registry, folder.value, store.*folder.field, folder.defaultText, key.get());
}

// Scaled, locale and folder defaults exist only for the record itself; a
// hosted tab's defaults are constants.
template <typename Record>
std::int32_t NumberDefault(const FieldSpec<Record>& spec, const Record& record,
                           const SettingsEnvironment* environment) {
  if constexpr (std::is_same_v<Record, SettingsStore>) {
    switch (spec.rule) {
      case DefaultRule::Scaled:
        return ScaledFor(record, *environment, spec.number);
      case DefaultRule::LocaleClock:
        return environment->locale.TimeFormatIndicator().substr(0, 1) == u"1" ? 0 : 1;
      case DefaultRule::LocaleFirstDay:
        return ParseLong(environment->locale.FirstDayOfWeek().substr(0, 4), 10);
      default:
        break;
    }
  }
  return spec.number;
}

template <typename Record>
std::u16string TextDefault(const FieldSpec<Record>& spec, const Record& record, bool forSave) {
  if constexpr (std::is_same_v<Record, SettingsStore>) {
    if (spec.rule == DefaultRule::ProductFolder) return record.ProductFolder.Str();
    if (spec.rule == DefaultRule::CategoryIcons) return record.ProductFolder.Str() + u"\\CategoryIcons";
  }
  return forSave && spec.savedText ? spec.savedText : spec.text;
}

template <typename Record>
void LoadValue(const FieldSpec<Record>& spec, Record& record, const SettingsEnvironment* environment,
               Registry& registry, RegKey key) {
  switch (spec.kind) {
    case ValueKind::Dword:
      record.*spec.dword = ReadDword(registry, spec.name, NumberDefault(spec, record, environment), key);
      break;
    case ValueKind::Text:
      ReadString(registry, spec.name, record.*spec.string, TextDefault(spec, record, false), key);
      break;
    case ValueKind::Item: {
      SettingItem& item = record.*spec.item;
      item.defaultValue = spec.number;
      item.name.Assign(spec.name);
      item.value = ReadDword(registry, item.name.View(), item.defaultValue, key);
      break;
    }
  }
}

template <typename Record>
void SaveValue(const FieldSpec<Record>& spec, const Record& record, const SettingsEnvironment* environment,
               Registry& registry, RegKey key) {
  if (!spec.saved) return;
  switch (spec.kind) {
    case ValueKind::Dword:
      WriteDword(registry, key, spec.name, record.*spec.dword, NumberDefault(spec, record, environment));
      break;
    case ValueKind::Text:
      WriteString(registry, key, spec.name, (record.*spec.string).View(), TextDefault(spec, record, true));
      break;
    case ValueKind::Item: {
      const SettingItem& item = record.*spec.item;
      WriteDword(registry, key, item.name.View(), item.value, item.defaultValue);
      break;
    }
  }
}

FontDefaults DefaultFont(const FontSpec& spec, const SettingsStore& store, const SettingsEnvironment& environment,
                         bool forSave) {
  return {ScaledFor(store, environment, 12), spec.bold, forSave ? spec.savedStrikeOut : spec.strikeOut};
}

template <typename Record>
void ListValue(const FieldSpec<Record>& spec, const Record& record, const SettingsEnvironment* environment,
               std::u16string_view path, LoadedValueSink& sink) {
  switch (spec.kind) {
    case ValueKind::Dword:
      sink.Number(path, spec.name, record.*spec.dword, NumberDefault(spec, record, environment));
      break;
    case ValueKind::Text:
      sink.Text(path, spec.name, (record.*spec.string).View(), TextDefault(spec, record, false));
      break;
    case ValueKind::Item:
      sink.Number(path, spec.name, (record.*spec.item).value, spec.number);
      break;
  }
}

void LoadKey(const KeySpec& spec, SettingsStore& store, const SettingsEnvironment& environment) {
  Registry& registry = environment.registry;
  ScopedKey key(registry, kCurrentUser, spec.path, true);
  for (const ValueSpec& value : spec.values)
    LoadValue(value, store, &environment, registry, key.get());
  for (const FontSpec& font : spec.fonts)
    ReadFont(registry, key.get(), font.name, store.*font.field, store.ForceClearType == 1,
             store.FontFaceToUse.View(), DefaultFont(font, store, environment, false));
  if (spec.afterLoad) spec.afterLoad(store, environment, key.get());
}

void SaveKey(const KeySpec& spec, SettingsStore& store, const SettingsEnvironment& environment) {
  Registry& registry = environment.registry;
  ScopedKey key(registry, kCurrentUser, spec.path, true);
  if (spec.beforeSave) spec.beforeSave(store, environment, key.get());
  for (const ValueSpec& value : spec.values)
    SaveValue(value, store, &environment, registry, key.get());
  for (const FontSpec& font : spec.fonts)
    WriteFont(registry, key.get(), font.name, store.*font.field, DefaultFont(font, store, environment, true));
  if (spec.afterSave) spec.afterSave(store, environment, key.get());
}

constexpr const KeySpec* kProductKeys[] = {
    &kMainKey,   &kCalendarKey, &kTasksKey, &kNotesKey,       &kMessagesKey,  &kSEventsKey,
    &kCustomPimKey, &kFontsKey, &kColorsKey, &kTabSettingsKey, &kCategoriesKey};

}  // namespace

std::span<const KeySpec* const> ProductKeys() { return kProductKeys; }

int ScaledFor(const SettingsStore& store, const SettingsEnvironment& environment, int value) {
  return ScaleValue(value, environment.dpi, store.MyVgaMode == 1);
}

void LoadHostedTab(TabEntry& entry, Registry& registry, RegKey key) {
  for (const TabValueSpec& value : HostedTabValues())
    LoadValue(value, entry, nullptr, registry, key);
}

void SaveHostedTab(const TabEntry& entry, Registry& registry, RegKey key) {
  for (const TabValueSpec& value : HostedTabValues())
    SaveValue(value, entry, nullptr, registry, key);
}

void ListLoadedValues(const SettingsStore& store, const SettingsEnvironment& environment, LoadedValueSink& sink) {
  for (const KeySpec* key : ProductKeys()) {
    for (const ValueSpec& value : key->values) ListValue(value, store, &environment, key->path, sink);
    for (const FontSpec& font : key->fonts)
      for (const FontValue& value :
           FontValues(font.name, store.*font.field, DefaultFont(font, store, environment, false)))
        sink.Number(key->path, value.name, value.loaded, value.missing);
  }
  for (const TabEntry& entry : store.tabs) {
    std::u16string path = FormatText(u"%s\\%s", {kTabSettingsKey.path, entry.name.View()}, WideString::kMaxLength);
    for (const TabValueSpec& value : HostedTabValues()) ListValue(value, entry, nullptr, path, sink);
  }
}

void LoadSettings(SettingsStore& store, const SettingsEnvironment& environment) {
  // Most values are absent: each key is listed once instead of asked for each.
  MissCachingRegistry registry(environment.registry);
  const SettingsEnvironment listed{registry, environment.locale, environment.files, environment.dpi,
                                   environment.readSkin};
  LoadInstallFolders(store, registry);
  LoadVendorFolders(store, registry, kAgendaFusion);
  LoadVendorFolders(store, registry, kPocketInformant);
  for (const KeySpec* key : ProductKeys()) LoadKey(*key, store, listed);
  if (listed.readSkin != nullptr) listed.readSkin(store, listed.files);
}

void SaveSettings(SettingsStore& store, const SettingsEnvironment& environment) {
  for (const KeySpec* key : ProductKeys()) SaveKey(*key, store, environment);
}

}  // namespace tw
