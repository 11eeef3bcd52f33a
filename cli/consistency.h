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

/// The values of record `index` that are not of the type they are saved as, a line each: an asset
/// is read up to the first of them.
std::vector<std::string> wrongTypesIn(HostTable& table, std::int16_t index);

}  // namespace depcalc
