#pragma once

#include "platform/bitmaps.h"

namespace tw {

// Bitmap files as DIB sections (what SHLoadDIBitmap gives on the device).
class Win32Bitmaps : public Bitmaps {
 public:
  BitmapHandle Load(std::u16string_view path) override;
  void Free(BitmapHandle bitmap) override;
};

}  // namespace tw
