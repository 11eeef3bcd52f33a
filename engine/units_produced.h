// Depreciation by the units produced in a year: a charge by use (IAS 16, paragraph 62).
#pragma once

#include <map>

#include "values/currency.h"

namespace depcalc {

/// Units produced in a fiscal year, by year: 0 to 999,999,999,999.
using UnitsByYear = std::map<int, double>;
using AmountsByYear = std::map<int, Currency>;

/// What `units` produced in a year take: `units` × `rate` to the cent, halves to even, at most what
/// is `left` above salvage, and never below 0.
Currency amountOfUnits(double units, Currency rate, Currency left);

/// The amounts of the entries in the years `first` to `last`, in the order of the years, each
/// leaving less of the depreciable `base` (basis − salvage) to the next.
AmountsByYear amountsOfUnits(const UnitsByYear& units, Currency rate, Currency base, int first,
                             int last);

}  // namespace depcalc
