// Colour and font schemes: files "<name>.scm" in the installation's Schemes
// folder, in the settings file's form, holding the Colors and Fonts trees
// and the categories section. Each operation reports the message the page
// shows (kNoMessage for none).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/categories.h"
#include "platform/file_system.h"
#include "platform/registry.h"
#include "resources/string_ids.h"

namespace tw {

inline constexpr std::size_t kMaxSchemeName = 255;

// File names ("*.scm", extension included) in the order the file system gives.
std::vector<std::u16string> ListSchemes(FileSystem& files, std::u16string_view installFolder);

// Never overwrites: an empty or existing name is refused. On kSchemeSaved
// the page lists name + ".scm" and clears its name field.
MessagePair SaveScheme(Registry& registry, FileSystem& files, const CategoryList& categories,
                       std::u16string_view installFolder, std::u16string_view name);
// fileName is the list entry ("name.scm"); called after the user said Yes.
bool DeleteScheme(FileSystem& files, std::u16string_view installFolder, std::u16string_view fileName);
// Clears the Colors and Fonts trees so that values the scheme lacks fall back
// to their defaults, then imports the file. kNoMessage means success: the
// caller goes on as after a settings import. A failed import leaves both
// trees cleared and whatever it wrote before failing.
MessagePair LoadScheme(Registry& registry, FileSystem& files, CategoryData& data,
                       std::u16string_view installFolder, std::u16string_view fileName);

}  // namespace tw
