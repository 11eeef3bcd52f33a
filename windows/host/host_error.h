// What a failing call of the host comes to.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "values/runtime_error.h"

namespace depcalc {

/// The run-time error of a call that answered `result`. Where that is DISP_E_EXCEPTION, number and
/// description are the ones that `exception` carries (its deferred parts are filled in, its texts
/// freed); else the number is errorOfHresult's, the description the system's for it.
RuntimeError hostError(HRESULT result, EXCEPINFO& exception);

}  // namespace depcalc
