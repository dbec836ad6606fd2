// The "name"="data" parser over any line: both parts are taken from the line
// by position, so each must be a piece of it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "data/line_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::u16string line(size / 2, u'\0');
  std::memcpy(line.data(), data, line.size() * 2);
  tw::WideString name, value;
  tw::ParseStringLine(line, name, value);
  if (line.find(name.View()) == std::u16string::npos) std::abort();
  if (line.find(value.View()) == std::u16string::npos) std::abort();
  if (name.Length() + value.Length() > line.size()) std::abort();
  return 0;
}
