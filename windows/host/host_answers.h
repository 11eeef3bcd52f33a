// What a host's members answer, as their roles have it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "values/date.h"
#include "values/stored_value.h"
#include "windows/host/owned_variant.h"

namespace depcalc {

/// A yes or no; a number is yes unless it is 0. Anything else: error 13.
bool booleanIn(const OwnedVariant& answer);
/// A count. No number: error 13, more than 32 bits hold: error 6.
std::int32_t longIn(const OwnedVariant& answer);
/// A date, or a number that counts its days. Anything else: error 13.
Date dateIn(const OwnedVariant& answer);
/// An array of texts, as texts or as VARIANTs. Anything else: error 13.
std::vector<std::string> textsIn(const OwnedVariant& answer);

OwnedVariant booleanVariant(bool value);

/// The elements of a one-dimensional array. No such array, or an element that is no stored value:
/// error 13.
std::vector<StoredValue> elementsOf(const VARIANT& array);

}  // namespace depcalc
