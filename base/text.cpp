#include "base/text.h"

#include <limits>
#include <span>

namespace tw {

namespace {

// Windows-1252 for 0x80..0x9F; the five unassigned bytes stand for themselves.
constexpr char16_t kWindows1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t FromWindows1252(std::uint8_t byte) {
  return byte >= 0x80 && byte < 0xA0 ? kWindows1252High[byte - 0x80] : byte;
}

void AppendCodePoint(std::u16string& out, char32_t code) {
  if (code >= 0x10000) {
    code -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (code >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
  } else {
    out.push_back(static_cast<char16_t>(code));
  }
}

// Length of the well-formed UTF-8 sequence at bytes[i] (0 if there is none)
// and its code point.
std::size_t Utf8Sequence(std::span<const std::uint8_t> bytes, std::size_t i, char32_t& code) {
  std::uint8_t lead = bytes[i];
  std::size_t length = lead < 0x80 ? 1 : lead >= 0xC2 && lead <= 0xDF ? 2
                       : lead >= 0xE0 && lead <= 0xEF ? 3 : lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
  if (length == 0 || i + length > bytes.size()) return 0;
  code = length == 1 ? lead : lead & (0x7F >> length);
  for (std::size_t k = 1; k < length; ++k) {
    if ((bytes[i + k] & 0xC0) != 0x80) return 0;
    code = code << 6 | (bytes[i + k] & 0x3F);
  }
  static constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return code < kSmallest[length] || code > 0x10FFFF || surrogate ? 0 : length;
}

}  // namespace

std::u16string Utf8ToUtf16(std::span<const std::uint8_t> bytes) {
  std::u16string out;
  out.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    char32_t code = 0;
    std::size_t length = Utf8Sequence(bytes, i, code);
    if (length == 0) {
      out.push_back(FromWindows1252(bytes[i]));
      ++i;
    } else {
      AppendCodePoint(out, code);
      i += length;
    }
  }
  return out;
}


std::u16string Utf8ToUtf16(std::string_view text) {
  return Utf8ToUtf16(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

std::string Utf16ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    if (code >= 0xD800 && code <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
        text[i + 1] <= 0xDFFF) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[i + 1] - 0xDC00);
      ++i;
    }
    if (code < 0x80) {
      out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
      out.push_back(static_cast<char>(0xC0 | (code >> 6)));
      out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else if (code < 0x10000) {
      out.push_back(static_cast<char>(0xE0 | (code >> 12)));
      out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
      out.push_back(static_cast<char>(0xF0 | (code >> 18)));
      out.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    }
  }
  return out;
}

namespace {

bool IsSpace(char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); }

int DigitValue(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'a' && c <= u'z') return c - u'a' + 10;
  if (c >= u'A' && c <= u'Z') return c - u'A' + 10;
  return 99;
}

// Shared scan of wcstol/wcstoul: sign, radix prefix, magnitude saturated at 2^32.
struct Scan {
  bool negative = false;
  bool overflow = false;
  std::uint64_t magnitude = 0;
  std::size_t consumed = 0;
};

Scan ScanNumber(std::u16string_view text, int radix) {
  Scan scan;
  std::size_t i = 0;
  while (i < text.size() && IsSpace(text[i])) ++i;
  if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) scan.negative = text[i++] == u'-';
  if ((radix == 0 || radix == 16) && i + 1 < text.size() && text[i] == u'0' &&
      (text[i + 1] == u'x' || text[i + 1] == u'X') && i + 2 < text.size() &&
      DigitValue(text[i + 2]) < 16) {
    i += 2;
    radix = 16;
  } else if (radix == 0) {
    radix = i < text.size() && text[i] == u'0' ? 8 : 10;
  }
  if (radix < 2 || radix > 36) return scan;
  std::size_t start = i;
  for (; i < text.size() && DigitValue(text[i]) < radix; ++i) {
    scan.magnitude = scan.magnitude * radix + DigitValue(text[i]);
    if (scan.magnitude > 0xFFFFFFFFull) {
      scan.overflow = true;
      scan.magnitude = 0x100000000ull;
    }
  }
  scan.consumed = i > start ? i : 0;
  return scan;
}

}  // namespace

std::int32_t ParseLong(std::u16string_view text, int radix, std::size_t* consumed) {
  Scan scan = ScanNumber(text, radix);
  if (consumed) *consumed = scan.consumed;
  if (scan.negative) {
    if (scan.magnitude > 0x80000000ull) return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(-static_cast<std::int64_t>(scan.magnitude));
  }
  if (scan.magnitude > 0x7FFFFFFFull) return std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(scan.magnitude);
}

std::uint32_t ParseUnsignedLong(std::u16string_view text, int radix, std::size_t* consumed) {
  Scan scan = ScanNumber(text, radix);
  if (consumed) *consumed = scan.consumed;
  if (scan.overflow) return 0xFFFFFFFFu;
  std::uint32_t value = static_cast<std::uint32_t>(scan.magnitude);
  return scan.negative ? 0u - value : value;
}

char16_t AsciiLower(char16_t c) { return c >= u'A' && c <= u'Z' ? c + 32 : c; }

bool FoldAsciiName(std::u16string_view name, std::u16string& folded) {
  folded.assign(name);
  for (char16_t& c : folded) {
    if (c > 0x7F) return false;
    c = AsciiLower(c);
  }
  return true;
}

bool EqualsIgnoreCase(std::u16string_view a, std::u16string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (AsciiLower(a[i]) != AsciiLower(b[i])) return false;
  return true;
}

}  // namespace tw
