// Which control a key is meant for.
#pragma once

#include "controls/stage.h"

namespace depcalc::desktop {

/// The control shown that Alt and `letter` click; of several the one furthest in front. None:
/// null.
[[nodiscard]] Control* mnemonicTarget(const Stage& stage, char letter);

/// What explains the control that has the focus: the label that names it. Where nothing has the
/// focus or nothing names it, the screen's own help. None: null.
[[nodiscard]] Control* helpTarget(const Stage& stage);

/// The close button of the popup furthest in front. None: null.
[[nodiscard]] Control* closeTarget(const Stage& stage);

}  // namespace depcalc::desktop
