// What assistive tools are told of a control.
#pragma once

#include <string>

#include "controls/control.h"

namespace depcalc {

/// What a screen reader calls the control: its caption, that of the label that names it, or the
/// title of a screen; its name in the code where there is none. Never empty.
[[nodiscard]] std::string accessibleName(const Control& control);

/// What it says beyond the name: how to get help, which key clicks it. Often nothing.
[[nodiscard]] std::string accessibleDescription(const Control& control);

}  // namespace depcalc
