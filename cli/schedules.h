// The four methods side by side.
#pragma once

#include <cstddef>

#include "engine/method_batch.h"
#include "engine/method_results.h"

namespace depcalc {

/// What the comparison of the methods shows of an asset: the schedules with the years shown.
struct Schedules : MethodResults {
  int first_fiscal_year = 0;  ///< the year in which the asset's first fiscal year ends
  std::size_t years = 0;  ///< fiscal years shown: the useful life, and one more unless Full Year
};

/// Calculates `asset`, which is number `index` of `batch`, by every method, in the order in which
/// the comparison does. The storage of `schedules` is used again.
void calculateSchedules(MethodBatch& batch, std::size_t index, CalculateDep& asset,
                        Schedules& schedules);

}  // namespace depcalc
