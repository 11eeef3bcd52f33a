// The types that an asset's values are saved as.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/host.h"

namespace depcalc {

/// What is wrong with `fields` of record `index`, a line for each value that is not of the type it
/// is saved as: an asset is read up to the first of them.
std::vector<std::string> wrongTypesOf(const HostFields& fields, std::int16_t index);

/// The same for a record of the asset table.
std::vector<std::string> wrongTypesIn(HostTable& table, std::int16_t index);

}  // namespace depcalc
