#include "data/line_reader.h"

#include "base/text.h"

namespace tw {

int ReadByteLine(File& file, WideString& line) {
  line.Assign(u"");
  std::u16string text;
  unsigned char byte = 0;
  int result = 0;
  while (file.Read(&byte, 1) == 1) {
    if (byte == 0x0A) {
      result = 1;
      break;
    }
    if (byte != 0) text.push_back(byte);
  }
  line.Assign(text);
  return result;
}

namespace {

// Text between positions [from, to) of line, empty when the range is empty or outside.
std::u16string_view Slice(std::u16string_view line, std::size_t from, std::size_t to) {
  if (to > line.size()) to = line.size();
  if (from >= to) return {};
  return line.substr(from, to - from);
}

std::u16string_view NameOf(std::u16string_view line) {
  std::size_t equals = line.find(u'=');
  if (equals == std::u16string_view::npos) equals = line.size();
  return Slice(line, 1, equals == 0 ? 0 : equals - 1);
}

}  // namespace

void ParseStringLine(std::u16string_view line, WideString& name, WideString& data) {
  name.Assign(NameOf(line));
  std::size_t equals = line.find(u'=');
  if (equals == std::u16string_view::npos || line.size() < 2) {
    data.Assign(u"");
    return;
  }
  data.Assign(Slice(line, equals + 2, line.size() - 2));
}

int ParseDwordLine(std::u16string_view line, WideString& name, std::int32_t& number, int radix) {
  std::size_t keyword = line.find(u"=dword");
  if (keyword == std::u16string_view::npos || line.size() - keyword < 8) return 0;
  name.Assign(NameOf(line));
  number = ParseLong(line.substr(keyword + 7), radix);
  return 1;
}

}  // namespace tw
