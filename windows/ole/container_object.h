// The calculator as a control.
#pragma once

#include "windows/ole/control_object.h"

namespace depcalc::windows {

/// Over the host that `create_host` finds; it has started up. The reference belongs to the caller.
IUnknown* newDepCalcCont(CreateHost create_host);

/// The class, for registration.
const ControlClass& containerClass();

}  // namespace depcalc::windows
