// The growable wide string that every record field and page text uses.
//
// Capacity and length are 16-bit counts, as on the device. A text that would
// pass kMaxLength characters is cut to kMaxLength (never in the middle of a
// surrogate pair); the string never writes past its block.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace tw {

// One argument of Format: a number (%d %i %u %x %X %c) or a text (%s).
class FormatArg {
 public:
  FormatArg(int v) : value_(static_cast<long long>(v)) {}
  FormatArg(long v) : value_(static_cast<long long>(v)) {}
  FormatArg(long long v) : value_(v) {}
  FormatArg(unsigned v) : value_(static_cast<long long>(v)) {}
  FormatArg(unsigned long v) : value_(static_cast<long long>(v)) {}
  FormatArg(std::u16string_view v) : value_(v) {}
  FormatArg(const std::u16string& v) : value_(std::u16string_view(v)) {}
  FormatArg(const char16_t* v) : value_(std::u16string_view(v ? v : u"(null)")) {}

  bool IsText() const { return std::holds_alternative<std::u16string_view>(value_); }
  long long Number() const { return IsText() ? 0 : std::get<long long>(value_); }
  std::u16string_view Text() const { return IsText() ? std::get<std::u16string_view>(value_) : u""; }

 private:
  std::variant<long long, std::u16string_view> value_;
};

// printf-style formatting into text: flags '-' and '0', a width, the length
// modifiers l/ll/h (ignored), conversions d i u x X c s %. Numbers are 32-bit
// as on the device (%d of 0xFFFFFFFF is -1). Missing arguments format as empty
// or 0; the result is cut at maxChars.
std::u16string FormatText(std::u16string_view pattern, std::initializer_list<FormatArg> args,
                          std::size_t maxChars = 1023);

class WideString {
 public:
  static constexpr std::uint16_t kInitialCapacity = 64;
  static constexpr std::uint16_t kMaxLength = 65534;  // a 65,535-character block with its terminator

  WideString();
  WideString(std::u16string_view text);
  WideString(const WideString& other);
  WideString& operator=(const WideString& other);
  WideString(WideString&& other) noexcept;
  WideString& operator=(WideString&& other) noexcept;
  ~WideString();

  void Assign(std::u16string_view text);
  void Append(std::u16string_view text);
  // Formats through the one shared 1024-character buffer, then assigns.
  template <typename... Args>
  void Format(std::u16string_view pattern, const Args&... args) {
    Assign(FormatText(pattern, {FormatArg(args)...}));
  }
  void Release();

  const char16_t* Text() const { return text_; }
  std::u16string_view View() const { return {text_, length_}; }
  std::u16string Str() const { return std::u16string(View()); }
  std::uint16_t Length() const { return length_; }
  std::uint16_t Capacity() const { return capacity_; }
  bool Empty() const { return length_ == 0; }

  bool operator==(std::u16string_view other) const { return View() == other; }
  bool operator==(const WideString& other) const { return View() == other.View(); }

 private:
  void Allocate(std::size_t capacity);

  char16_t* text_ = nullptr;
  std::uint16_t capacity_ = 0;
  std::uint16_t length_ = 0;
};

}  // namespace tw
