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

// Reads the record's selected skin; the skin format lives above the record,
// so whoever loads the settings hands its reader in.
using SkinReader = void (*)(SettingsStore& store, FileSystem& files);

struct SettingsEnvironment {
  Registry& registry;
  Locale& locale;
  FileSystem& files;
  // The screen's horizontal dots per inch: scaled defaults depend on it.
  int dpi = 96;
  // Called once every key is loaded; without it the skin is left as it is.
  SkinReader readSkin = nullptr;
};

// Fills the whole record: defaults for whatever is missing or unreadable,
// validation of the day count, title order and tabs, and the selected skin.
// Never fails.
void LoadSettings(SettingsStore& store, const SettingsEnvironment& environment);

// Writes every saved value that differs from its default and deletes every
// one that equals it. Defaults are worked out again now, so a changed locale
// or VGA mode makes an unchanged value explicit. Failures are silent.
void SaveSettings(SettingsStore& store, const SettingsEnvironment& environment);

// Receives each value the loader reads below the product key: what the
// record holds, and what the loader takes when the value is missing.
class LoadedValueSink {
 public:
  virtual void Number(std::u16string_view keyPath, std::u16string_view name, std::int32_t loaded,
                      std::int32_t missing) = 0;
  virtual void Text(std::u16string_view keyPath, std::u16string_view name, std::u16string_view loaded,
                    std::u16string_view missing) = 0;

 protected:
  ~LoadedValueSink() = default;
};

// Every value behind a record loaded in this environment; the defaults are
// the ones its load took (scaled ones follow its VGA mode, the hosted tabs
// are its own). A missing value stored as its default loads to the same
// record, which is what lets a backup undo a value a later import added.
void ListLoadedValues(const SettingsStore& store, const SettingsEnvironment& environment, LoadedValueSink& sink);

// A 96-dpi layout value on the environment's screen, as the record's VGA mode
// would draw it.
int ScaledFor(const SettingsStore& store, const SettingsEnvironment& environment, int value);

}  // namespace tw
