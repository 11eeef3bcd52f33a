// Units-of-production depreciation: a charge by use instead of by time (IAS 16, paragraph 62).
#pragma once

#include "values/currency.h"

namespace depcalc {

/// Depreciation per unit produced: (basis − salvage) / capacity to four decimals, halves to even;
/// 0 when there is no capacity, whatever the amounts.
Currency unitsOfProduction(Currency basis, Currency salvage, double capacity);

}  // namespace depcalc
