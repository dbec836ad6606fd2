#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tw {

// Every font face of the device context, in the order EnumFontsW gives them.
std::vector<std::u16string> FontFaces(HDC dc);

}  // namespace tw
