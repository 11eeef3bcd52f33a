#include "windows/controls/zoom.h"

#include <algorithm>
#include <cmath>

namespace depcalc::native {

int rounded(double value) { return static_cast<int>(std::lround(value)); }

RECT Zoom::rect(const Place& place, POINT origin) const {
  return {origin.x + rounded(place.left * x), origin.y + rounded(place.top * y),
          origin.x + rounded((place.left + place.width) * x),
          origin.y + rounded((place.top + place.height) * y)};
}

int Zoom::pixels(double twips) const { return rounded(twips * std::min(x, y)); }

}  // namespace depcalc::native
