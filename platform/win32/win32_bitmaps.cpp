#include "platform/win32/win32_bitmaps.h"

#include <windows.h>

#include "platform/win32/wide.h"

namespace tw {

BitmapHandle Win32Bitmaps::Load(std::u16string_view path) {
  std::wstring file = ToWide(path);
  return LoadImageW(nullptr, file.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION);
}

void Win32Bitmaps::Free(BitmapHandle bitmap) {
  if (bitmap) DeleteObject(static_cast<HBITMAP>(bitmap));
}

}  // namespace tw
