// Whether the asset table is in order.
#pragma once

#include <string>
#include <vector>

#include "cli/company.h"

namespace depcalc {

/// What is wrong with the asset table, a line each: indices with gaps, a record that says it is
/// another, values of a wrong type, a summary that does not agree with the assets. Empty when all
/// is well.
std::vector<std::string> inconsistenciesOf(Company& company);

}  // namespace depcalc
