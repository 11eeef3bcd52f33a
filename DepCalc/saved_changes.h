// What counts as a change of a record.
#pragma once

#include <string_view>

#include "engine/calculate_dep.h"

namespace depcalc {

/// Whether a record differs from its saved copy in anything that the user enters or chooses. The
/// amounts per year follow from the rest and are not compared.
bool differsFromSaved(const CalculateDep& current, const CalculateDep& saved);

/// Whether nothing was entered into a record that was never saved. Convention, fiscal-year end
/// and method are not looked at: the form fills them in by itself.
bool isBlank(const CalculateDep& record);

/// What to tell a user who saves after changing an input of the calculation without calculating
/// again: a text for the first input that differs, "" when none does.
std::string_view recalculationWarning(const CalculateDep& current, const CalculateDep& saved);

}  // namespace depcalc
