// From the calculator's twips to the screen's pixels.
#pragma once

#include <QRect>
#include <cmath>

#include "controls/control.h"

namespace depcalc::desktop {

inline constexpr int twips_per_inch = 1440;
inline constexpr int minimum_zoom = 75;
inline constexpr int maximum_zoom = 300;

/// Pixels here are Qt's: where the screen has several dots to a pixel, Qt draws all of them.
class Scale {
 public:
  /// `dpi` is the screen's logical resolution, `zoom` a percentage.
  explicit Scale(double dpi = 96, int zoom = 100)
      : zoom_(zoom), pixels_per_twip_(dpi / twips_per_inch * zoom / 100) {}

  [[nodiscard]] int zoom() const { return zoom_; }
  [[nodiscard]] double exact(double twips) const { return twips * pixels_per_twip_; }
  [[nodiscard]] int pixels(double twips) const {
    return static_cast<int>(std::lround(exact(twips)));
  }
  [[nodiscard]] double twips(double pixels) const { return pixels / pixels_per_twip_; }
  /// Edges are rounded, not sizes: what touches in twips touches on the screen.
  [[nodiscard]] QRect rect(const Place& place) const {
    const int left = pixels(place.left);
    const int top = pixels(place.top);
    return {left, top, pixels(place.left + place.width) - left,
            pixels(place.top + place.height) - top};
  }

 private:
  int zoom_;
  double pixels_per_twip_;
};

}  // namespace depcalc::desktop
