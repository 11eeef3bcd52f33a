// The calculator that the library hands out.
#pragma once

#include <windows.h>

#include <unknwn.h>

namespace depcalc::windows {

/// Over the host that this computer names; it has started up. The reference belongs to the caller.
IUnknown* newCalculator();

}  // namespace depcalc::windows
