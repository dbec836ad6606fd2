#include "data/settings_text.h"

#include "base/text.h"

namespace tw {
namespace {

std::u16string DecodeUtf16(std::span<const std::uint8_t> bytes, bool bigEndian) {
  std::u16string out;
  out.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    std::uint8_t high = bytes[i + (bigEndian ? 0 : 1)], low = bytes[i + (bigEndian ? 1 : 0)];
    out.push_back(static_cast<char16_t>(high << 8 | low));
  }
  return out;
}

enum class Encoding { Utf8, Utf16Le, Utf16Be };

// Zero bytes mark UTF-16 without a mark only when they form its pattern over
// the whole file: the high bytes of its ASCII characters (every quote, name,
// number and line end of this format) fill at least a quarter of the odd
// positions for little-endian, or of the even ones for big-endian, and
// hardly any zero stands on the other side. A stray zero byte in UTF-8, or a
// tail of zeros left by an interrupted write, forms no such pattern.
bool ZerosFormUtf16(std::size_t highZeros, std::size_t lowZeros, std::size_t units) {
  return highZeros > 0 && highZeros * 4 >= units && lowZeros * 8 <= highZeros;
}

Encoding Detect(std::span<const std::uint8_t> bytes, std::size_t& markLength) {
  markLength = 0;
  if (bytes.size() >= 3 && bytes[0] == 0xEF && bytes[1] == 0xBB && bytes[2] == 0xBF) {
    markLength = 3;
    return Encoding::Utf8;
  }
  if (bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE) {
    markLength = 2;
    return Encoding::Utf16Le;
  }
  if (bytes.size() >= 2 && bytes[0] == 0xFE && bytes[1] == 0xFF) {
    markLength = 2;
    return Encoding::Utf16Be;
  }
  std::size_t evenZeros = 0, oddZeros = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i)
    if (bytes[i] == 0) ++(i % 2 == 0 ? evenZeros : oddZeros);
  std::size_t units = bytes.size() / 2;
  if (ZerosFormUtf16(oddZeros, evenZeros, units)) return Encoding::Utf16Le;
  if (ZerosFormUtf16(evenZeros, oddZeros, units)) return Encoding::Utf16Be;
  return Encoding::Utf8;
}

// A zero byte in 8-bit text holds no character; it is dropped, as the byte
// line reader drops it.
std::u16string DecodeUtf8(std::span<const std::uint8_t> bytes) {
  std::u16string text = Utf8ToUtf16(bytes);
  std::erase(text, u'\0');
  return text;
}

std::u16string JoinLineEnds(std::u16string text) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;
    text[kept++] = text[i];
  }
  text.resize(kept);
  return text;
}

}  // namespace

void SettingsTextOutput::Write(std::u16string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    if (code < 0x80 && code != u'\n') {  // the common case, a byte a character
      bytes_.push_back(static_cast<char>(code));
      continue;
    }
    if (code >= 0xD800 && code <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
        text[i + 1] <= 0xDFFF) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00);
    }
    if (code == u'\n') {
      bytes_ += "\r\n";
    } else if (code < 0x800) {
      bytes_.push_back(static_cast<char>(0xC0 | code >> 6));
      bytes_.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else if (code < 0x10000) {
      bytes_.push_back(static_cast<char>(0xE0 | code >> 12));
      bytes_.push_back(static_cast<char>(0x80 | (code >> 6 & 0x3F)));
      bytes_.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
      bytes_.push_back(static_cast<char>(0xF0 | code >> 18));
      bytes_.push_back(static_cast<char>(0x80 | (code >> 12 & 0x3F)));
      bytes_.push_back(static_cast<char>(0x80 | (code >> 6 & 0x3F)));
      bytes_.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    }
  }
}

std::u16string DecodeSettingsText(std::span<const std::uint8_t> bytes) {
  std::size_t markLength = 0;
  Encoding encoding = Detect(bytes, markLength);
  bytes = bytes.subspan(markLength);
  return JoinLineEnds(encoding == Encoding::Utf8 ? DecodeUtf8(bytes)
                                                 : DecodeUtf16(bytes, encoding == Encoding::Utf16Be));
}

bool SettingsTextInput::ReadLine(std::u16string& line) {
  line.clear();
  if (next_ >= text_.size()) return false;
  std::size_t limit = std::min(text_.size(), next_ + kLineBuffer - 1);
  std::size_t end = next_;
  while (end < limit && text_[end] != u'\n') ++end;
  if (end < limit) ++end;  // the line feed belongs to the line
  line.assign(text_, next_, end - next_);
  next_ = end;
  return true;
}

}  // namespace tw
