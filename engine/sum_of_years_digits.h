// Sum-of-the-years'-digits depreciation: the accelerated method of the textbooks in which each year
// carries the years that are left, over the sum of all of them.
#pragma once

#include "engine/schedule.h"

namespace depcalc {

/// Asset year k of `life` years carries (life − k + 1) / (1 + 2 + … + life) of basis − salvage.
/// A fiscal year takes the rest of the asset year that began in the one before and the first
/// year's share of the asset year that begins in it. Over whole years the schedule sums exactly
/// to basis − salvage; the rounding difference lands on the last year that has an amount.
/// `amounts` starts all zero and holds indices 0 to life + 1. Digits that do not fit in 16 bits
/// (a life of 256 years) are error 6; digits of 0 are error 11 (6 when the dividend is 0 too).
void sumOfYearsDigits(const ScheduleInput& input, Amounts amounts);

/// The same for who listens.
template <Listener L, typename Input, typename Storage>
void sumOfYearsDigits(const Input& input, Storage amounts, L& listener) {
  using Number = typename L::Number;
  using Money = typename L::Money;
  const Number life(input.life);
  const Number first_share = listener.recall(RuleStep::first_share, input.first_year_fraction);
  const Number sum = listener.tell(RuleStep::sum_of_digits, (life + 1.0) * life / 2.0);
  const Number digits = listener.tell(RuleStep::whole_digits, Number(toInteger16HalfEven(sum)));
  const Money base = depreciableBase(input, listener);
  const Number money = base.toDouble();

  Number asset_year = listener.tell(RuleStep::asset_year, divide(money * life, digits), {1});
  listener.beginYear(0);
  const Money first = Money::fromDoubleTo2HalfEven(asset_year * first_share);
  Money total =
      listener.tell(RuleStep::taken, listener.take(amounts[0], RuleStep::first_year, first));

  for (const std::int32_t year : listener.years(1, input.lastWholeYear())) {
    listener.beginYear(year);
    const Number share_left = listener.tell(RuleStep::share_left, 1.0 - first_share);
    const Money rest_of_last = listener.tell(RuleStep::rest_of_asset_year,
                                             Money::fromDouble(asset_year * share_left), {year});
    // What the asset year carries that begins `year` years after the first.
    listener.set(asset_year,
                 listener.tell(RuleStep::asset_year, divide((life - Number(year)) * money, digits),
                               {year + 1}));
    const Money start_of_next = listener.tell(
        RuleStep::start_of_asset_year, Money::fromDouble(asset_year * first_share), {year + 1});
    const Money both = Money::fromDoubleTo2HalfEven((rest_of_last + start_of_next).toDouble());
    total = listener.tell(
        RuleStep::taken,
        listener.sum(total, listener.take(amounts[year], RuleStep::sum_of_shares, both)));
  }
  if (const auto those = listener.where(!input.fullYear())) {
    // Not rounded to cents: settling the rest brings the sum out exactly.
    const auto year = input.yearAfterLast();
    listener.beginYear(year);
    const Number share_left = listener.tell(RuleStep::share_left, 1.0 - first_share);
    const Money end = Money::fromDouble(asset_year * share_left);
    total = listener.tell(
        RuleStep::taken,
        listener.sum(total, listener.take(amounts[year], RuleStep::end_of_last_year, end)));
  }
  settleRest(input, base, total, amounts, listener);
}

}  // namespace depcalc
