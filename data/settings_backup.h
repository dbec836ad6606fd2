// The copy of the settings written aside before an import or a scheme
// rewrites the registry with no way back.
#pragma once

#include <string_view>

#include "data/categories.h"
#include "settings/settings_io.h"

namespace tw {

inline constexpr std::u16string_view kSettingsBackupName = u"TW_Settings.bak";

// Writes the backup into the documents folder: the export made whole, with
// every value the loader reads and the export leaves out written as the
// loader took it (a missing one as its default). Imported under the settings
// file's name over any later state, it loads the same record again. False
// when the file could not be written.
bool BackUpSettings(const SettingsEnvironment& environment, const CategoryData& data,
                    std::u16string_view documentsFolder);

}  // namespace tw
