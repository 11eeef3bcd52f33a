// What assistive tools are told of the windows and of what is drawn on them.
#pragma once

#include "windows/controls/control_window.h"

namespace depcalc::native {

/// The answer to WM_GETOBJECT for the client area of `window`: names, roles, values, states and
/// default actions as the control model has them. A page's children are its controls, a grid's its
/// cells, row by row.
LRESULT accessibleResult(ControlWindow& window, WPARAM wide);

}  // namespace depcalc::native
