// Run-time errors as the numbers that COM carries them in.
#pragma once

#include <windows.h>

namespace depcalc {

/// The HRESULT of a run-time error: 0x800A0000 and the number. A number that is an HRESULT itself
/// (a negative one) stays as it is.
HRESULT hresultOfError(int number);

/// The number of the run-time error that a failing HRESULT stands for: what `hresultOfError` made
/// of it, the usual number of the system's own codes (no memory: 7, wrong type: 13, overflow: 6,
/// bad index: 9, no such member: 438, …), the HRESULT itself for any other.
int errorOfHresult(HRESULT result);

}  // namespace depcalc
