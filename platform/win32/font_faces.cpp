#include "platform/win32/font_faces.h"

#include "platform/win32/wide.h"

namespace tw {
namespace {

int CALLBACK AddFace(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM faces) {
  reinterpret_cast<std::vector<std::u16string>*>(faces)->push_back(ToU16(font->lfFaceName));
  return 1;
}

}  // namespace

std::vector<std::u16string> FontFaces(HDC dc) {
  std::vector<std::u16string> faces;
  EnumFontsW(dc, nullptr, AddFace, reinterpret_cast<LPARAM>(&faces));
  return faces;
}

}  // namespace tw
