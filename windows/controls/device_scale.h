// Twips and pixels.
#pragma once

#include <windows.h>

#include "controls/control.h"

namespace depcalc {

/// What a twip, a 1440th of an inch, comes to on a device of `dots_per_inch`. Rounded to nearest,
/// halves away from zero.
class DeviceScale {
 public:
  explicit DeviceScale(int dots_per_inch) : dots_per_inch_(dots_per_inch) {}

  [[nodiscard]] int dotsPerInch() const { return dots_per_inch_; }
  [[nodiscard]] double twipsPerPixel() const { return 1440.0 / dots_per_inch_; }

  [[nodiscard]] int pixels(int twips) const;
  [[nodiscard]] int twips(int pixels) const;
  /// The edges are rounded each for itself, so that neighbours meet.
  [[nodiscard]] RECT pixels(const Place& place) const;

 private:
  int dots_per_inch_;
};

}  // namespace depcalc
