// Units-of-production depreciation: a charge by use instead of by time (IAS 16, paragraph 62).
#pragma once

#include "engine/told_steps.h"
#include "values/currency.h"

namespace depcalc {

/// Depreciation per unit produced: (basis − salvage) / capacity to four decimals, halves to even;
/// 0 when there is no capacity, whatever the amounts.
Currency unitsOfProduction(Currency basis, Currency salvage, double capacity);

/// The same for who listens.
template <Listener L>
typename L::Money unitsOfProduction(Currency basis, Currency salvage, double capacity,
                                    L& listener) {
  using Number = typename L::Number;
  using Money = typename L::Money;
  if (capacity == 0.0) return listener.tell(RuleStep::no_rate, Money());
  const Money base = listener.tell(RuleStep::base, Money(basis) - Money(salvage));
  return listener.tell(RuleStep::rate_per_unit,
                       Money::fromDouble(divide(base.toDouble(), Number(capacity))));
}

}  // namespace depcalc
