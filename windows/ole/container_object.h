// The calculator as a control.
#pragma once

#include "windows/ole/control_object.h"

namespace depcalc::windows {

/// Starts `calculator` up and makes it a control. The reference belongs to the caller.
IUnknown* newDepCalcCont(const std::shared_ptr<CalculatorModel>& calculator);

/// The class, for registration.
const ControlClass& containerClass();

}  // namespace depcalc::windows
