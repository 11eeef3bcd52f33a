// Stored values as automation carries them.
#pragma once

#include "values/stored_value.h"
#include "windows/host/owned_variant.h"

namespace depcalc {

/// The VARIANT of a stored value: Empty VT_EMPTY, Integer VT_I2, Double VT_R8, Currency VT_CY, Date
/// VT_DATE, String VT_BSTR. No memory for a text: std::bad_alloc.
OwnedVariant variantOf(const StoredValue& value);

/// The stored value of a VARIANT. What `variantOf` makes comes back as it was; Null is Empty, a
/// time of day is dropped. A host written in a script has other numbers too: a whole number that
/// fits is an Integer, any other number a Double, True is -1 and False 0. A reference is read
/// through. A date out of range is error 5; an object, an array or an error value is error 13.
StoredValue storedValueOf(const VARIANT& variant);

}  // namespace depcalc
