// Depreciation by the units produced in a year: a charge by use (IAS 16, paragraph 62).
#pragma once

#include <map>

#include "engine/told_steps.h"
#include "values/currency.h"
#include "values/money_range.h"

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

/// The same for who listens.
template <Listener L>
typename L::Money amountOfUnits(double units, const typename L::Money& rate,
                                const typename L::Money& left, L& listener) {
  using Number = typename L::Number;
  using Money = typename L::Money;
  if (left < Money()) return listener.tell(RuleStep::no_units, Money());
  const Number product = Number(units) * rate.toDouble();
  if (product >= more_than_money) return listener.tell(RuleStep::only_what_is_left, left);
  if (product <= 0.0) return listener.tell(RuleStep::no_units, Money());
  const Money amount =
      listener.tell(RuleStep::amount_of_units, Money::fromDoubleTo2HalfEven(product));
  return listener.atMost(RuleStep::only_what_is_left, amount, left);
}

/// The same; the years are told by their numbers.
template <Listener L>
AmountsByYear amountsOfUnits(const UnitsByYear& units, const typename L::Money& rate,
                             const typename L::Money& base, int first, int last, L& listener) {
  using Money = typename L::Money;
  AmountsByYear amounts;
  Money left = base;
  for (auto entry = units.lower_bound(first); entry != units.end() && entry->first <= last;
       ++entry) {
    listener.beginYear(entry->first);
    left = listener.tell(RuleStep::units_left, left);
    const Money amount = amountOfUnits(entry->second, rate, left, listener);
    left -= listener.take(amounts[entry->first], RuleStep::units_taken, amount);
  }
  return amounts;
}

}  // namespace depcalc
