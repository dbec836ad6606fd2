// Core text is char16_t; on Windows wchar_t is the same 16-bit unit. This is
// the one place where the Win32 side views one as the other.
#pragma once

#include <string>
#include <string_view>

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Win32 build expects 16-bit wchar_t");

namespace tw {

inline const wchar_t* AsWide(const char16_t* text) { return reinterpret_cast<const wchar_t*>(text); }
inline wchar_t* AsWide(char16_t* text) { return reinterpret_cast<wchar_t*>(text); }
inline const char16_t* AsU16(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }
inline char16_t* AsU16(wchar_t* text) { return reinterpret_cast<char16_t*>(text); }
// A terminated wide copy of a view, for calls that need a C string.
inline std::wstring ToWide(std::u16string_view text) { return std::wstring(AsWide(text.data()), text.size()); }
inline std::u16string ToU16(std::wstring_view text) { return std::u16string(AsU16(text.data()), text.size()); }

}  // namespace tw
