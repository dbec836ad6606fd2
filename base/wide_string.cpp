#include "base/wide_string.h"

#include <algorithm>
#include <cstring>

namespace tw {
namespace {

constexpr std::size_t kSlack = 4;   // room kept beyond the text before growing
constexpr std::size_t kGrowth = 64; // what a new block adds to the needed length
constexpr std::size_t kMaxCapacity = 65535;

// Length of text that fits under the limit without splitting a surrogate pair.
std::size_t CutLength(std::u16string_view text, std::size_t limit) {
  if (text.size() <= limit) return text.size();
  std::size_t n = limit;
  if (n > 0 && text[n - 1] >= 0xD800 && text[n - 1] <= 0xDBFF) --n;
  return n;
}

void AppendNumber(std::u16string& out, long long value, char conversion, bool leftAlign,
                  bool zeroPad, std::size_t width) {
  std::uint32_t bits = static_cast<std::uint32_t>(value);
  std::string digits;
  bool negative = false;
  if (conversion == 'd' || conversion == 'i') {
    std::int32_t signedValue = static_cast<std::int32_t>(bits);
    negative = signedValue < 0;
    std::uint32_t magnitude = negative ? 0u - bits : bits;
    digits = std::to_string(magnitude);
  } else if (conversion == 'u') {
    digits = std::to_string(bits);
  } else {
    const char* set = conversion == 'x' ? "0123456789abcdef" : "0123456789ABCDEF";
    do {
      digits.insert(digits.begin(), set[bits & 15]);
      bits >>= 4;
    } while (bits != 0);
  }
  std::size_t length = digits.size() + (negative ? 1 : 0);
  std::size_t pad = width > length ? width - length : 0;
  if (!leftAlign && !zeroPad) out.append(pad, u' ');
  if (negative) out.push_back(u'-');
  if (!leftAlign && zeroPad) out.append(pad, u'0');
  for (char c : digits) out.push_back(static_cast<char16_t>(c));
  if (leftAlign) out.append(pad, u' ');
}

}  // namespace

std::u16string FormatText(std::u16string_view pattern, std::initializer_list<FormatArg> args,
                          std::size_t maxChars) {
  std::u16string out;
  auto next = args.begin();
  auto take = [&]() -> const FormatArg* { return next == args.end() ? nullptr : &*next++; };
  for (std::size_t i = 0; i < pattern.size() && out.size() < maxChars; ++i) {
    char16_t c = pattern[i];
    if (c != u'%' || i + 1 >= pattern.size()) {
      out.push_back(c);
      continue;
    }
    ++i;
    bool leftAlign = false, zeroPad = false;
    for (; i < pattern.size() && (pattern[i] == u'-' || pattern[i] == u'0'); ++i)
      (pattern[i] == u'-' ? leftAlign : zeroPad) = true;
    std::size_t width = 0;
    for (; i < pattern.size() && pattern[i] >= u'0' && pattern[i] <= u'9'; ++i)
      width = std::min<std::size_t>(width * 10 + (pattern[i] - u'0'), maxChars);
    while (i < pattern.size() && (pattern[i] == u'l' || pattern[i] == u'h')) ++i;
    if (i >= pattern.size()) break;
    char16_t conversion = pattern[i];
    switch (conversion) {
      case u'%':
        out.push_back(u'%');
        break;
      case u's': {
        const FormatArg* arg = take();
        std::u16string_view text = arg ? arg->Text() : u"";
        std::size_t pad = width > text.size() ? width - text.size() : 0;
        if (!leftAlign) out.append(pad, u' ');
        out.append(text);
        if (leftAlign) out.append(pad, u' ');
        break;
      }
      case u'c': {
        const FormatArg* arg = take();
        out.push_back(static_cast<char16_t>(arg ? arg->Number() : 0));
        break;
      }
      case u'd': case u'i': case u'u': case u'x': case u'X': {
        const FormatArg* arg = take();
        AppendNumber(out, arg ? arg->Number() : 0, static_cast<char>(conversion), leftAlign,
                     zeroPad, width);
        break;
      }
      default:  // unknown conversion: kept as written
        out.push_back(u'%');
        out.push_back(conversion);
    }
  }
  if (out.size() > maxChars) out.resize(CutLength(out, maxChars));
  return out;
}

WideString::WideString() { Allocate(kInitialCapacity); }

WideString::WideString(std::u16string_view text) : WideString() { Assign(text); }

WideString::WideString(const WideString& other) : WideString() { Assign(other.View()); }

WideString& WideString::operator=(const WideString& other) {
  if (this != &other) Assign(other.View());
  return *this;
}

WideString::WideString(WideString&& other) noexcept
    : text_(other.text_), capacity_(other.capacity_), length_(other.length_) {
  other.text_ = nullptr;
  other.capacity_ = other.length_ = 0;
}

WideString& WideString::operator=(WideString&& other) noexcept {
  if (this != &other) {
    delete[] text_;
    text_ = other.text_;
    capacity_ = other.capacity_;
    length_ = other.length_;
    other.text_ = nullptr;
    other.capacity_ = other.length_ = 0;
  }
  return *this;
}

WideString::~WideString() { delete[] text_; }

void WideString::Allocate(std::size_t capacity) {
  capacity = std::min(capacity, kMaxCapacity);
  text_ = new char16_t[capacity];
  text_[0] = 0;
  capacity_ = static_cast<std::uint16_t>(capacity);
}

void WideString::Assign(std::u16string_view text) {
  std::size_t n = CutLength(text, kMaxLength);
  if (text_ == nullptr || n + kSlack > capacity_) {
    // The old block is dropped without copying; text may point into it, so
    // the new block is filled before the old one is freed.
    char16_t* old = text_;
    Allocate(n + kGrowth);
    std::copy_n(text.data(), n, text_);
    delete[] old;
  } else {
    std::copy_n(text.data(), n, text_);  // copy_n handles text inside our own block going left
  }
  length_ = static_cast<std::uint16_t>(n);
  text_[n] = 0;
}

void WideString::Append(std::u16string_view text) {
  if (text_ == nullptr) Allocate(kInitialCapacity);
  std::size_t n = CutLength(text, kMaxLength - length_);
  if (length_ + n + kSlack > capacity_) {
    char16_t* old = text_;
    std::uint16_t oldLength = length_;
    Allocate(oldLength + n + kGrowth);
    std::copy_n(old, oldLength, text_);
    std::copy_n(text.data(), n, text_ + oldLength);
    delete[] old;
  } else {
    std::memmove(text_ + length_, text.data(), n * sizeof(char16_t));
  }
  length_ = static_cast<std::uint16_t>(length_ + n);
  text_[length_] = 0;
}

void WideString::Release() {
  delete[] text_;
  text_ = nullptr;
  capacity_ = length_ = 0;
}

}  // namespace tw
