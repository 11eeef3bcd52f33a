// All fiscal years: every asset, and what each year takes of it.
#pragma once

#include <optional>

#include "reports/grouping.h"
#include "reports/register.h"
#include "reports/table.h"

namespace depcalc {

/// Fiscal years from the first to the last, both included.
struct YearRange {
  int from = 0;
  int to = 0;
};

/// The years from `from` to `to`, where not given those that the register's summary spans: its
/// first year and as many after it as it says. Without assets the fiscal year of today.
YearRange rangeOfYears(const RegisterOfAssets& assets, std::optional<int> from,
                       std::optional<int> to);

/// A row for every asset: what the years before `range` took, each year in it, and those after it.
/// A sum out of range is error 6.
Report yearsReport(const RegisterOfAssets& assets, YearRange range, Grouping grouping);

}  // namespace depcalc
