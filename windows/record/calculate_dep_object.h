// The asset record as a COM object.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "engine/calculate_dep.h"

namespace depcalc::windows {

/// A new object over a new record, with a reference that belongs to the caller.
IUnknown* newCalculateDep();

/// The object of a record, with a reference that belongs to the caller; null for none. A record
/// that came from an object answers that object.
IDispatch* objectOfRecord(const CalculateDepPtr& record);

/// The record behind an object, which lives as long as either is held; none for null. An object
/// that is none of this library's, or that lives in another apartment: error 13.
CalculateDepPtr recordOfObject(IUnknown* object);

}  // namespace depcalc::windows
