// A platform test with a settings record and shortcuts to load and save it.
#pragma once

#include <memory>

#include "data/skin.h"
#include "settings/settings_io.h"
#include "tests/support/test_platform.h"

namespace tw::test {

inline constexpr std::u16string_view kMain = u"Software\\Orvex\\Tidewell";
inline constexpr std::u16string_view kCalendar = u"Software\\Orvex\\Tidewell\\Calendar";
inline constexpr std::u16string_view kFonts = u"Software\\Orvex\\Tidewell\\Fonts";
inline constexpr std::u16string_view kTabs = u"Software\\Orvex\\Tidewell\\TabSettings";
inline constexpr std::u16string_view kNotes = u"Software\\Orvex\\Tidewell\\Notes";
inline constexpr std::u16string_view kMessages = u"Software\\Orvex\\Tidewell\\Messages";

class SettingsTest : public PlatformTest {
 protected:
  void SetUp() override {
    PlatformTest::SetUp();
    store = std::make_unique<SettingsStore>();
  }
  SettingsEnvironment Environment(Registry& r) { return {r, locale(), files(), dpi, ReadSelectedSkin}; }
  void Load() { LoadSettings(*store, Environment(registry())); }
  void Save() { SaveSettings(*store, Environment(registry())); }
  void Reload() {
    store = std::make_unique<SettingsStore>();
    Load();
  }
  StoredValue Stored(std::u16string_view path, std::u16string_view name) {
    return ReadValue(registry(), kCurrentUser, path, name);
  }
  void Put(std::u16string_view path, std::u16string_view name, std::uint32_t value) {
    WriteDword(registry(), kCurrentUser, path, name, value);
  }

  std::unique_ptr<SettingsStore> store;
  int dpi = 96;
};

}  // namespace tw::test
