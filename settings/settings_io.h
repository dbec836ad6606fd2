// Loading the settings record from the registry and saving it back.
#pragma once

#include <cstdint>
#include <string>

#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/registry.h"
#include "settings/registry_values.h"
#include "settings/schema.h"
#include "settings/settings_store.h"

namespace tw {

struct SettingsEnvironment {
  Registry& registry;
  Locale& locale;
  FileSystem& files;
};

// Fills the whole record: defaults for whatever is missing or unreadable,
// validation of the day count, title order and tabs, then the selected skin.
// Never fails.
void LoadSettings(SettingsStore& store, const SettingsEnvironment& environment);

// Writes every saved value that differs from its default and deletes every
// one that equals it. Defaults are worked out again now, so a changed locale
// or VGA mode makes an unchanged value explicit. Failures are silent.
void SaveSettings(SettingsStore& store, const SettingsEnvironment& environment);

// The defaults the loader uses (and the saver, but for the exceptions that
// the tables declare).
std::int32_t DefaultNumber(const ValueSpec& spec, const SettingsStore& store, Locale& locale);
std::u16string DefaultText(const ValueSpec& spec, const SettingsStore& store, bool forSave);
FontDefaults DefaultFont(const FontSpec& spec, const SettingsStore& store, bool forSave);

}  // namespace tw
