// The "name"=dword:n parser over any line: it either parses or leaves its
// outputs exactly as they were.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "data/line_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::u16string line(size / 2, u'\0');
  std::memcpy(line.data(), data, line.size() * 2);
  tw::WideString name(u"untouched");
  std::int32_t number = 12345;
  int result = tw::ParseDwordLine(line, name, number, 10);
  if (result == 0 && (name.View() != u"untouched" || number != 12345)) std::abort();
  if (result == 1 && line.find(name.View()) == std::u16string::npos) std::abort();
  if (result != 0 && result != 1) std::abort();
  return 0;
}
