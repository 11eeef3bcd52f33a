// Straight-line depreciation: a constant charge over the useful life (IAS 16, paragraph 62; in the
// United States the first of the methods that ASC 360-10-35 calls systematic and rational).
#pragma once

#include "engine/schedule.h"

namespace depcalc {

/// The same amount each year: (basis − salvage) / life, to the cent. A partial first year takes
/// its share, and the year after the last takes the rest. Over whole years the schedule sums
/// exactly to basis − salvage; the rounding difference lands on the last year that has an amount.
/// `amounts` starts all zero and holds indices 0 to life + 1. A life of 0 is error 11 (6 when
/// there is nothing to depreciate).
void straightLine(const ScheduleInput& input, Amounts amounts);

/// The same for who listens.
template <Listener L, typename Input, typename Storage>
void straightLine(const Input& input, Storage amounts, L& listener) {
  using Number = typename L::Number;
  using Money = typename L::Money;
  const Number fraction = listener.recall(RuleStep::first_share, input.first_year_fraction);
  const Money base = depreciableBase(input, listener);
  const Number annual =
      listener.tell(RuleStep::annual, divide(base.toDouble(), Number(input.life)));

  listener.beginYear(0);
  const Money first = Money::fromDoubleTo2HalfEven(annual * fraction);
  Money total =
      listener.tell(RuleStep::taken, listener.take(amounts[0], RuleStep::first_year, first));

  for (const std::int32_t year : listener.years(1, input.lastWholeYear())) {
    listener.beginYear(year);
    const Money whole = Money::fromDoubleTo2HalfEven(annual);
    total = listener.tell(
        RuleStep::taken,
        listener.sum(total, listener.take(amounts[year], RuleStep::whole_year, whole)));
  }
  if (const auto those = listener.where(!input.fullYear())) {
    // Not rounded to cents: settling the rest brings the sum out exactly.
    const auto year = input.yearAfterLast();
    listener.beginYear(year);
    const Number share_left = listener.tell(RuleStep::share_left, 1.0 - fraction);
    const Money end = Money::fromDouble(annual * share_left);
    total = listener.tell(
        RuleStep::taken,
        listener.sum(total, listener.take(amounts[year], RuleStep::end_of_last_year, end)));
  }
  settleRest(input, base, total, amounts, listener);
}

}  // namespace depcalc
