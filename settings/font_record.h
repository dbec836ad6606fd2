// A font as the Today item stores it: the platform's LOGFONTW followed by a
// colour. The layout matches LOGFONTW byte for byte so the Win32 side can use
// it directly.
#pragma once

#include <cstdint>

namespace tw {

struct LogFont {
  std::int32_t lfHeight = 0;
  std::int32_t lfWidth = 0;
  std::int32_t lfEscapement = 0;
  std::int32_t lfOrientation = 0;
  std::int32_t lfWeight = 0;
  std::uint8_t lfItalic = 0;
  std::uint8_t lfUnderline = 0;
  std::uint8_t lfStrikeOut = 0;
  std::uint8_t lfCharSet = 0;
  std::uint8_t lfOutPrecision = 0;
  std::uint8_t lfClipPrecision = 0;
  std::uint8_t lfQuality = 0;
  std::uint8_t lfPitchAndFamily = 0;
  char16_t lfFaceName[32] = {};
};
static_assert(sizeof(LogFont) == 92, "LogFont must match LOGFONTW");

inline constexpr std::int32_t kWeightNormal = 100;  // the Today item's "normal", not 400
inline constexpr std::int32_t kWeightBold = 700;
inline constexpr std::uint8_t kClearTypeQuality = 5;
inline constexpr std::int32_t kNoColor = -1;

struct FontRecord {
  LogFont font;
  std::int32_t color = kNoColor;
};

}  // namespace tw
