#include "engine/sum_of_years_digits.h"

namespace depcalc {

void sumOfYearsDigits(const ScheduleInput& input, Amounts amounts) {
  const double life = input.life;
  const double first_share = input.first_year_fraction;
  const double digits = toInteger16HalfEven((life + 1.0) * life / 2.0);
  const double base = input.depreciableBase().toDouble();

  amounts[0] = Currency::fromDouble(roundTo2HalfEven(divide(base * life, digits) * first_share));
  Currency total = amounts[0];

  const std::int32_t last = input.lastWholeYear();
  std::int32_t year = 1;
  for (; year <= last; ++year) {
    const Currency rest_of_asset_year =
        Currency::fromDouble(divide((life - year + 1.0) * base, digits) * (1.0 - first_share));
    const Currency start_of_next =
        Currency::fromDouble(divide((life - year) * base, digits) * first_share);
    amounts[year] =
        Currency::fromDouble(roundTo2HalfEven((rest_of_asset_year + start_of_next).toDouble()));
    total += amounts[year];
  }
  if (!input.fullYear()) {
    // Not rounded to cents: settling the rest brings the sum out exactly.
    amounts[input.yearAfterLast()] =
        Currency::fromDouble(divide((life - year + 1.0) * base, digits) * (1.0 - first_share));
    total += amounts[input.yearAfterLast()];
  }
  settleRest(input, total, amounts);
}

}  // namespace depcalc
