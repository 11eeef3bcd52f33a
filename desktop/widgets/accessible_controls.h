// What assistive tools are told of the widgets that Qt does not know.
#pragma once

namespace depcalc::desktop {

/// Once per program, before the first widget.
void installAccessibleControls();

}  // namespace depcalc::desktop
