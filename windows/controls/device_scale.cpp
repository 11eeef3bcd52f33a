#include "windows/controls/device_scale.h"

namespace depcalc {
namespace {

constexpr int twips_per_inch = 1440;

}  // namespace

int DeviceScale::pixels(int twips) const { return MulDiv(twips, dots_per_inch_, twips_per_inch); }

int DeviceScale::twips(int pixels) const { return MulDiv(pixels, twips_per_inch, dots_per_inch_); }

RECT DeviceScale::pixels(const Place& place) const {
  return {pixels(place.left), pixels(place.top), pixels(place.left + place.width),
          pixels(place.top + place.height)};
}

}  // namespace depcalc
