// The colours of the calculator's own screens.
#pragma once

#include "controls/colour.h"

namespace depcalc::scheme {

inline constexpr Colour white = Colour::rgb(255, 255, 255).paletteRelative();
inline constexpr Colour tan = Colour::rgb(225, 197, 168).paletteRelative();
inline constexpr Colour dark_red = Colour::rgb(102, 0, 0).paletteRelative();
inline constexpr Colour cream = Colour::rgb(255, 247, 232).paletteRelative();
// By definition, without effect: nothing is drawn in it.
inline constexpr Colour light_grey = Colour::rgb(239, 239, 239).paletteRelative();

}  // namespace depcalc::scheme
