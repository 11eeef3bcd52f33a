// The four methods side by side.
#pragma once

#include <cstddef>
#include <vector>

#include "engine/calculate_dep.h"

namespace depcalc {

/// What the comparison of the methods shows of an asset. A method that failed has no amounts.
struct Schedules {
  int first_fiscal_year = 0;  ///< the year in which the asset's first fiscal year ends
  std::size_t years = 0;  ///< fiscal years shown: the useful life, and one more unless Full Year
  std::vector<Currency> straight_line;
  std::vector<Currency> sum_of_years_digits;
  std::vector<Currency> double_declining_balance;
  Currency rate;  ///< per unit of production
};

/// Calculates `asset` by every method, in the order in which the comparison does. The storage of
/// `schedules` is used again.
void calculateSchedules(CalculateDep& asset, Schedules& schedules);

}  // namespace depcalc
