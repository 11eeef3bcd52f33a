// A host application for tests: an automation object that tests can also steer.
#pragma once

#include "tests/windows/host/served_object.h"

namespace depcalc::testing_support {

/// A host's application object. Besides what every host has, it has members that steer it:
///   Open PATH           opens a company file; "" is the one in memory, which is there again
///   Close               closes it
///   MultiUser YES       mode of the file in memory
///   FiscalYear DATE     where the fiscal year of the open file begins
///   Palette COLOURS     of the file in memory, an array
///   FailAt N            call N from now on fails with error 57; 0: none
///   Calls               how many calls there were since
///   Die                 ends the process at once
Microsoft::WRL::ComPtr<IDispatch> newReferenceHost();

}  // namespace depcalc::testing_support
