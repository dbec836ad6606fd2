// Conversions and C-library look-alikes for char16_t text.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tw {

// UTF-8 to UTF-16; a byte that starts no well-formed sequence is taken as
// its Windows-1252 character, so 8-bit text from older files survives.
std::u16string Utf8ToUtf16(std::string_view text);
std::u16string Utf8ToUtf16(std::span<const std::uint8_t> bytes);
std::string Utf16ToUtf8(std::u16string_view text);

// wcstol with a 32-bit long, as on the device: leading white space, an
// optional sign, digits of the radix; out-of-range values clamp. consumed
// (if given) receives the characters used, 0 when no digit was found.
std::int32_t ParseLong(std::u16string_view text, int radix, std::size_t* consumed = nullptr);
// wcstoul likewise: a minus sign negates in 32 bits, overflow gives 0xFFFFFFFF.
std::uint32_t ParseUnsignedLong(std::u16string_view text, int radix, std::size_t* consumed = nullptr);

// Case-insensitive equality for ASCII letters only (value names and keys).
bool EqualsIgnoreCase(std::u16string_view a, std::u16string_view b);
char16_t AsciiLower(char16_t c);
// The name with ASCII letters lower-cased, or false when it holds anything
// but ASCII: other scripts fold case as the registry or file system decides.
bool FoldAsciiName(std::u16string_view name, std::u16string& folded);

}  // namespace tw
