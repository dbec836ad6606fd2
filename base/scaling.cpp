#include "base/scaling.h"

namespace tw {

ScreenResolution gScreen;

int ScaleValue(int v, int dpi, bool vgaMode) {
  if (vgaMode) return 2 * v;
  if (v >= 0) return (v * dpi + 48) / 96;
  return -((48 - v * dpi) / 96);
}

}  // namespace tw
