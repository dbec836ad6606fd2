#include "settings/registry_values.h"

#include <algorithm>

namespace tw {
namespace {

// Font value names are formed in a 260-character buffer, as the Today item does.
std::u16string FontValueName(std::u16string_view prefix, std::u16string_view field) {
  return FormatText(u"%s%s", {prefix, field}, 259);
}

bool IsZeroOrOne(std::int32_t v) { return v == 0 || v == 1; }

// The stored DWORD, or nothing when the query fails (the font rules tell
// "missing" apart from "present but out of range").
bool QueryDword(Registry& registry, RegKey key, std::u16string_view name, std::int32_t& value) {
  std::int32_t data = 0;
  std::uint32_t type = 0, size = sizeof data;
  if (key == 0 || registry.Query(key, name, type, &data, size) != kRegSuccess) return false;
  value = data;
  return true;
}

}  // namespace

std::int32_t ReadDword(Registry& registry, std::u16string_view name, std::int32_t defaultValue,
                       RegKey key) {
  std::int32_t value = defaultValue;
  return QueryDword(registry, key, name, value) ? value : defaultValue;
}

void WriteDword(Registry& registry, RegKey key, std::u16string_view name, std::int32_t value,
                std::int32_t defaultValue) {
  if (key == 0) return;
  if (value == defaultValue) registry.DeleteValue(key, name);
  else registry.SetDword(key, name, static_cast<std::uint32_t>(value));
}

void ReadString(Registry& registry, std::u16string_view name, WideString& destination,
                std::u16string_view defaultText, RegKey key) {
  char16_t buffer[kStringBufferBytes / 2] = {};
  std::uint32_t type = 0, size = kStringBufferBytes;
  if (key == 0 || registry.Query(key, name, type, buffer, size) != kRegSuccess) {
    destination.Assign(defaultText.substr(0, kStringBufferBytes / 2 - 1));
    return;
  }
  // Data need not carry a terminator; the zeroed buffer bounds it.
  std::size_t length = std::find(buffer, buffer + kStringBufferBytes / 2, u'\0') - buffer;
  destination.Assign(std::u16string_view(buffer, length));
}

void WriteString(Registry& registry, RegKey key, std::u16string_view name,
                 std::u16string_view value, std::u16string_view defaultText) {
  if (key == 0) return;
  if (value == defaultText) registry.DeleteValue(key, name);
  else registry.SetString(key, name, value);
}

void ReadFont(Registry& registry, RegKey key, std::u16string_view prefix, FontRecord& record,
              bool clearType, std::u16string_view face, const FontDefaults& defaults) {
  LogFont& font = record.font;
  font = LogFont();
  std::int32_t value = 0;

  bool weightKnown = QueryDword(registry, key, FontValueName(prefix, u"lfWeight"), value) &&
                     (value == kWeightNormal || value == kWeightBold);
  font.lfWeight = weightKnown ? value : defaults.bold ? kWeightBold : kWeightNormal;

  font.lfItalic = QueryDword(registry, key, FontValueName(prefix, u"lfItalic"), value) &&
                  IsZeroOrOne(value) && value == 1;
  font.lfUnderline = QueryDword(registry, key, FontValueName(prefix, u"lfUnderline"), value) &&
                     IsZeroOrOne(value) && value == 1;

  // Missing gives the default; present but not 0 or 1 gives 0, not the default.
  if (QueryDword(registry, key, FontValueName(prefix, u"lfStrikeOut"), value))
    font.lfStrikeOut = value == 1;
  else
    font.lfStrikeOut = defaults.strikeOut;

  font.lfHeight = ReadDword(registry, FontValueName(prefix, u"lfHeight"), defaults.height, key);
  record.color = ReadDword(registry, FontValueName(prefix, u"lfColor"), kNoColor, key);

  font.lfQuality = clearType ? kClearTypeQuality : 0;
  std::size_t faceLength = std::min<std::size_t>(face.size(), 31);
  std::copy_n(face.data(), faceLength, font.lfFaceName);
  font.lfFaceName[faceLength] = 0;
}

void WriteFont(Registry& registry, RegKey key, std::u16string_view prefix,
               const FontRecord& record, const FontDefaults& defaults) {
  if (key == 0) return;
  const LogFont& font = record.font;
  registry.SetDword(key, FontValueName(prefix, u"lfWeight"), static_cast<std::uint32_t>(font.lfWeight));
  WriteDword(registry, key, FontValueName(prefix, u"lfItalic"), font.lfItalic ? 1 : 0, 0);
  WriteDword(registry, key, FontValueName(prefix, u"lfUnderline"), font.lfUnderline ? 1 : 0, 0);
  WriteDword(registry, key, FontValueName(prefix, u"lfStrikeOut"), font.lfStrikeOut ? 1 : 0,
             defaults.strikeOut ? 1 : 0);
  WriteDword(registry, key, FontValueName(prefix, u"lfHeight"), font.lfHeight, defaults.height);
  WriteDword(registry, key, FontValueName(prefix, u"lfColor"), record.color, kNoColor);
}

std::array<FontValue, 6> FontValues(std::u16string_view prefix, const FontRecord& record,
                                    const FontDefaults& defaults) {
  const LogFont& font = record.font;
  return {{{FontValueName(prefix, u"lfWeight"), font.lfWeight, defaults.bold ? kWeightBold : kWeightNormal},
           {FontValueName(prefix, u"lfItalic"), font.lfItalic, 0},
           {FontValueName(prefix, u"lfUnderline"), font.lfUnderline, 0},
           {FontValueName(prefix, u"lfStrikeOut"), font.lfStrikeOut, defaults.strikeOut ? 1 : 0},
           {FontValueName(prefix, u"lfHeight"), font.lfHeight, defaults.height},
           {FontValueName(prefix, u"lfColor"), record.color, kNoColor}}};
}

}  // namespace tw
