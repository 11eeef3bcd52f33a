// The classes that the library hands out.
#pragma once

#include <windows.h>

#include "windows/com/class_factory.h"
#include "windows/registration/class_registration.h"

namespace depcalc::windows {

/// Who makes objects of a class; null where there is no such class.
ClassFactory::Maker makerOf(REFCLSID class_id);

/// What the registry is told.
RegisteredLibrary registeredLibrary();

}  // namespace depcalc::windows
