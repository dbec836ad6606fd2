// A platform test with a settings record and shortcuts to load and save it.
#pragma once

#include <memory>

#include "data/skin.h"
#include "settings/settings_io.h"
#include "tests/support/test_platform.h"

namespace tw::test {

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

  std::unique_ptr<SettingsStore> store;
  int dpi = 96;
};

}  // namespace tw::test
