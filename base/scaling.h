// Layout values are designed for a 96-dpi screen and converted here.
#pragma once

#include <cstdint>

namespace tw {

struct ScreenResolution {
  int dpiX = 96;  // GetDeviceCaps LOGPIXELSX, filled at start-up
  int dpiY = 96;  // GetDeviceCaps LOGPIXELSY
  // The record's MyVgaMode: 1 doubles every scaled value. The shell points it
  // at the one settings record, so a change on the General page counts at once.
  const std::int32_t* vgaMode = nullptr;
};

extern ScreenResolution gScreen;

// (v * dpi + 48) / 96 with halves rounded away from zero; 2 * v in VGA mode.
int ScaleValue(int v, int dpi, bool vgaMode);
inline bool VgaModeOn() { return gScreen.vgaMode != nullptr && *gScreen.vgaMode == 1; }
inline int ScaleX(int v) { return ScaleValue(v, gScreen.dpiX, VgaModeOn()); }
inline int ScaleY(int v) { return ScaleValue(v, gScreen.dpiY, VgaModeOn()); }

}  // namespace tw
