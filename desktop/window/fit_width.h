// How large the calculator is to be, so that it fills the width of its page.
#pragma once

#include <QSize>

#include "controls/control.h"

namespace depcalc::desktop {

/// The room that there is, in pixels, and what is to be seen in it.
struct Fitting {
  QSize room;              ///< of the page without scroll bars
  int scroll_bar;          ///< what a vertical one takes of it
  double pixels_per_twip;  ///< at 100 percent
  Place screen;            ///< the one that shows
  Place with_help;         ///< the same with the help that stands beside it
};

/// The zoom, in percent and within its bounds, at which the width is filled. Every screen has the
/// same: the one at which the entry form has room, with help beside it where the window is large
/// enough for that, and none so large that the height would not do. Only what would not fit then
/// is made smaller; a register that could not be read so is left to be scrolled. At each the usual
/// text is a whole number of pixels high.
[[nodiscard]] int fittingZoom(const Fitting& fitting);

}  // namespace depcalc::desktop
