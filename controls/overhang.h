// What reaches beyond the edges of the outermost control: the help popups beside a screen.
#pragma once

#include "controls/user_control.h"

namespace depcalc {

/// The control's size in twips, made larger for the user controls shown in it that reach beyond its
/// right and bottom edges, with a little room behind them.
[[nodiscard]] Place placeWithOverhang(const UserControl& control);

/// Whether `child` stands somewhere in front of a screen, and is none itself.
[[nodiscard]] bool floats(const Control& child);

}  // namespace depcalc
