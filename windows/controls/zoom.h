// Twips in the units of a device.
#pragma once

#include <windows.h>

#include "controls/control.h"

namespace depcalc::native {

/// To the nearest whole unit, halves away from zero.
[[nodiscard]] int rounded(double value);

/// Units of a device to a twip.
struct Zoom {
  double x = 1;
  double y = 1;

  [[nodiscard]] static Zoom ofDpi(double dpi) { return {dpi / 1440, dpi / 1440}; }
  /// Edges are rounded, not sizes: what touches in twips touches on the device.
  [[nodiscard]] RECT rect(const Place& place, POINT origin = {}) const;
  [[nodiscard]] int pixels(double twips) const;
};

}  // namespace depcalc::native
