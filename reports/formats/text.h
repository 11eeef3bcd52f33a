// Reports for a terminal.
#pragma once

#include <string>

#include "reports/table.h"

namespace depcalc {

/// All of `report` in columns of equal width, groups with their subtotals, notes and proofs below.
/// Control characters in texts are written out.
std::string textReport(const Report& report);

}  // namespace depcalc
