// The copy of the settings written aside before an import or a scheme
// rewrites the registry with no way back.
#pragma once

#include <string_view>

#include "data/categories.h"
#include "resources/string_ids.h"
#include "settings/settings_io.h"

namespace tw {

inline constexpr std::u16string_view kSettingsBackupName = u"TW_Settings.bak";

// Writes the backup into the documents folder: first the exact tree, which
// Undo restores and an import passes over, then the export made whole, with
// every value the loader reads and the export leaves out written as the
// loader took it (a missing one as its default). Imported under the settings
// file's name over any later state, it loads the same record again. Returns
// why it could not be written (kNoMessage when it was); the former backup is
// then left as it was.
MessagePair BackUpSettings(const SettingsEnvironment& environment, const CategoryData& data,
                           std::u16string_view documentsFolder);

// Puts the product's tree back exactly as the backup recorded it and the
// lists as it holds them, after backing up the present state in its place
// (unless backUpFirst is false: after a failed rewrite the registry holds no
// state worth keeping). kNoMessage on success: the caller then goes on as
// after an import. Nothing changes on a refusal; after kUndoIncomplete the
// former backup is back in place, so Undo can be tried again.
MessagePair UndoRewrite(const SettingsEnvironment& environment, CategoryData& data,
                        std::u16string_view documentsFolder, bool backUpFirst);

}  // namespace tw
