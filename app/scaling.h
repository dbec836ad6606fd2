// Layout values are designed for a 96-dpi screen and converted here.
#pragma once

namespace tw {

struct ScreenResolution {
  int dpiX = 96;  // GetDeviceCaps LOGPIXELSX, filled at start-up
  int dpiY = 96;  // GetDeviceCaps LOGPIXELSY
  // Mirrors the record's MyVgaMode == 1: loading and saving the settings set it.
  bool vgaMode = false;
};

extern ScreenResolution gScreen;

// (v * dpi + 48) / 96 with halves rounded away from zero; 2 * v in VGA mode.
int ScaleValue(int v, int dpi, bool vgaMode);
inline int ScaleX(int v) { return ScaleValue(v, gScreen.dpiX, gScreen.vgaMode); }
inline int ScaleY(int v) { return ScaleValue(v, gScreen.dpiY, gScreen.vgaMode); }

}  // namespace tw
