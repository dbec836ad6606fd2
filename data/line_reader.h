// Line reading and the two value-line parsers shared by the settings file,
// the filter file and skin.ini.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/wide_string.h"
#include "platform/file_system.h"

namespace tw {

// Reads one byte per call and takes each byte as a character: a line feed
// ends the line (not stored) and gives 1; zero bytes add nothing, so 8-bit
// and UTF-16LE ASCII text read alike; the carriage return stays in the line.
// Gives 0 at the end of the file, with whatever was read before it in line.
int ReadByteLine(File& file, WideString& line);

// "name"="data" taken by position: name from the second character up to the
// character before the first '='; data from two characters after '=' up to
// the end less the last two characters (closing quote and line end). Always
// succeeds; out-of-range positions give empty parts.
void ParseStringLine(std::u16string_view line, WideString& name, WideString& data);

// "name"=dword:n: the name as above; "=dword" must occur with at least eight
// characters from it to the end of the line, else 0 and the outputs are left
// as they were. The number is read with the given radix seven characters
// after "=dword" (the colon is assumed, not checked).
int ParseDwordLine(std::u16string_view line, WideString& name, std::int32_t& number, int radix);

}  // namespace tw
