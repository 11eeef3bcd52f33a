// Units-of-production depreciation.
#pragma once

#include "values/currency.h"

namespace depcalc {

/// Depreciation per unit produced: `depreciable_base` / `capacity` to four decimals, halves to
/// even; 0 when there is no capacity.
Currency unitsOfProduction(Currency depreciable_base, double capacity);

}  // namespace depcalc
