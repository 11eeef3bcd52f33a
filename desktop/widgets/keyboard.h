// Which control a key is meant for.
#pragma once

#include <vector>

#include "controls/stage.h"

namespace depcalc::desktop {

/// The control shown that Alt and `letter` click; of several the one furthest in front. None:
/// null.
[[nodiscard]] Control* mnemonicTarget(const Stage& stage, char letter);

/// What explains the control that has the focus: the label that names it. Where nothing has the
/// focus or nothing names it, the screen's own help. None: null.
[[nodiscard]] Control* helpTarget(const Stage& stage);

/// The fields shown, in the order of Tab.
[[nodiscard]] std::vector<InputControl*> tabFields(const Stage& stage);

/// What can be pressed beyond them: of each screen and popup the buttons, then the links. Labels
/// that explain a field are left to F1.
[[nodiscard]] std::vector<Control*> tabStops(const Stage& stage);

/// The close button of the popup furthest in front. None: null.
[[nodiscard]] Control* closeTarget(const Stage& stage);

}  // namespace depcalc::desktop
