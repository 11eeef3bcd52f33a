// The type library that the module carries in its resources.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

#include "windows/com/com_ptr.h"

namespace depcalc::windows {

/// The module that this code is in: the library, or a test program.
HMODULE thisModule();
std::wstring modulePath();

/// The module's type library, and what it says of a class or an interface. Not there: ComFailure.
ComPtr<ITypeLib> moduleTypeLibrary();
ComPtr<ITypeInfo> typeInfoOf(REFGUID id);

}  // namespace depcalc::windows
