#include "engine/units_produced.h"

#include <algorithm>

#include "values/money_range.h"

namespace depcalc {
Currency amountOfUnits(double units, Currency rate, Currency left) {
  if (left < Currency()) return {};
  const double product = units * rate.toDouble();
  if (product >= more_than_money) return left;
  if (product <= 0.0) return {};
  return std::min(Currency::fromDoubleTo2HalfEven(product), left);
}

AmountsByYear amountsOfUnits(const UnitsByYear& units, Currency rate, Currency base, int first,
                             int last) {
  AmountsByYear amounts;
  Currency left = base;
  for (auto entry = units.lower_bound(first); entry != units.end() && entry->first <= last;
       ++entry) {
    const Currency amount = amountOfUnits(entry->second, rate, left);
    amounts[entry->first] = amount;
    left -= amount;
  }
  return amounts;
}

}  // namespace depcalc
