// The text streams of the settings file. Output is UTF-8 without a mark with
// CR LF line ends, as the device's text-mode wide stream writes; input takes
// UTF-8 (with or without a mark), UTF-16 LE or BE (marked, or recognised by
// the zero bytes of their ASCII characters throughout the file) and
// Windows-1252 for bytes that are not UTF-8, and gives back lines as fgetws
// with an 800-character buffer does.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tw {

class SettingsTextOutput {
 public:
  // Text with "\n" line ends, as the export produces it.
  void Write(std::u16string_view text);
  const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

// The bytes of a file as UTF-16 text with every CR LF made "\n".
std::u16string DecodeSettingsText(std::span<const std::uint8_t> bytes);

class SettingsTextInput {
 public:
  static constexpr std::size_t kLineBuffer = 800;  // characters, terminator included

  explicit SettingsTextInput(std::u16string text) : text_(std::move(text)) {}
  static SettingsTextInput FromBytes(std::span<const std::uint8_t> bytes) {
    return SettingsTextInput(DecodeSettingsText(bytes));
  }

  bool Rewind() {
    next_ = 0;
    return true;
  }
  // Up to and including the next "\n", at most 799 characters; false at the end.
  bool ReadLine(std::u16string& line);

 private:
  std::u16string text_;
  std::size_t next_ = 0;
};

}  // namespace tw
