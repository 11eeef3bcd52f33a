// Which control a key is meant for.
#pragma once

#include <vector>

#include "controls/stage.h"

namespace depcalc {

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

/// Where Tab leads. Beyond the last field come the stops, which get the keys while the focus stays
/// in its field, as it does when the mouse presses them.
struct TabStep {
  enum class Kind {
    stop,   ///< `target` gets the keys
    field,  ///< from the stops into a field: the focus is asked for, and whoever has it then gets
            ///< the keys
    along   ///< from field to field: `User::tab`
  };
  Kind kind = Kind::along;
  Control* target = nullptr;
};

/// `keys_at`: the stop that has the keys, nothing where a field has them.
[[nodiscard]] TabStep tabStep(const Stage& stage, const Control* keys_at, bool backwards);

}  // namespace depcalc
