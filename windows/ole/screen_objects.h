// Each screen as a control by itself.
#pragma once

#include "windows/ole/control_object.h"

namespace depcalc::windows {

// The reference belongs to the caller.
IUnknown* newDepCalcCtl();
IUnknown* newDepCalcDisplayCtl();
IUnknown* newDepCalcView();
IUnknown* newDepCalcPopup();

// The classes, for registration.
const ControlClass& entryClass();
const ControlClass& comparisonClass();
const ControlClass& registerClass();
const ControlClass& popupClass();

}  // namespace depcalc::windows
