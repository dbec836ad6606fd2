// The two value-line forms shared by the settings file and the filter file;
// each writer adds its own line end.
#pragma once

#include <string_view>

namespace tw {

inline constexpr std::u16string_view kStringLineFormat = u"\"%s\"=\"%s\"";
inline constexpr std::u16string_view kDwordLineFormat = u"\"%s\"=dword:%d";

}  // namespace tw
