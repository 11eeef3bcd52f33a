// The roll-forward: how cost and accumulated depreciation come from the opening to the closing of a
// fiscal year (IAS 16, paragraph 73(e)).
#pragma once

#include "reports/grouping.h"
#include "reports/register.h"
#include "reports/table.h"

namespace depcalc {

/// A row for each group of the whole register, those in which nothing happens too, and the total;
/// without grouping the total alone. What is on the books before fiscal year `year` opens it, what
/// is after it closes it. A sum out of range is error 6.
Report rollforwardReport(const RegisterOfAssets& assets, int year, Grouping grouping);

}  // namespace depcalc
