// Reports as JSON.
#pragma once

#include <string>

#include "reports/table.h"

namespace depcalc {

/// The data table of `report` as an array with an object for each row of its CSV: `n` is a number,
/// null where there is none; all else is text. The total has "total" in the first column.
std::string jsonReport(const Report& report);

}  // namespace depcalc
