// Typed access to single registry values. The rule that shapes the whole
// registry layout lives here: a value equal to its default is never stored,
// it is deleted. Nothing reports failure: a failed read is the default, a
// failed write is lost.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/wide_string.h"
#include "platform/registry.h"
#include "settings/font_record.h"

namespace tw {

// Largest string read: 259 characters and the terminator.
inline constexpr std::uint32_t kStringBufferBytes = 520;

// The value, or the default when the query fails for any reason (missing,
// more than 4 bytes, no key). The type is not checked: "1" as REG_SZ is 49.
std::int32_t ReadDword(Registry& registry, std::u16string_view name, std::int32_t defaultValue,
                       RegKey key);
void WriteDword(Registry& registry, RegKey key, std::u16string_view name, std::int32_t value,
                std::int32_t defaultValue);
void ReadString(Registry& registry, std::u16string_view name, WideString& destination,
                std::u16string_view defaultText, RegKey key);
// Compared character by character, case-sensitive.
void WriteString(Registry& registry, RegKey key, std::u16string_view name,
                 std::u16string_view value, std::u16string_view defaultText);

// The defaults of one font record.
struct FontDefaults {
  std::int32_t height = 0;
  bool bold = false;
  bool strikeOut = false;
};

// Six DWORDs named prefix + "lfHeight", "lfWeight", "lfItalic", "lfUnderline",
// "lfStrikeOut", "lfColor"; the rest of the LOGFONTW is fixed (face, quality).
void ReadFont(Registry& registry, RegKey key, std::u16string_view prefix, FontRecord& record,
              bool clearType, std::u16string_view face, const FontDefaults& defaults);
void WriteFont(Registry& registry, RegKey key, std::u16string_view prefix,
               const FontRecord& record, const FontDefaults& defaults);

// One of the six values a font is stored as: what the record holds, and
// what ReadFont takes when the value is missing.
struct FontValue {
  std::u16string name;
  std::int32_t loaded;
  std::int32_t missing;
};
std::array<FontValue, 6> FontValues(std::u16string_view prefix, const FontRecord& record,
                                    const FontDefaults& defaults);

}  // namespace tw
