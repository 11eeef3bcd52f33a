#include "engine/sum_of_years_digits.h"

namespace depcalc {

void sumOfYearsDigits(const ScheduleInput& input, Amounts amounts) {
  const double life = input.life;
  const double first_share = input.first_year_fraction;
  const double digits = toInteger16HalfEven((life + 1.0) * life / 2.0);
  const double base = input.depreciableBase().toDouble();
  // What the asset year carries that begins `elapsed` years after the first.
  const auto assetYear = [&](double elapsed) { return divide((life - elapsed) * base, digits); };

  double asset_year = divide(base * life, digits);
  amounts[0] = Currency::fromDoubleTo2HalfEven(asset_year * first_share);
  Currency total = amounts[0];

  const std::int32_t last = input.lastWholeYear();
  for (std::int32_t year = 1; year <= last; ++year) {
    const Currency rest_of_last = Currency::fromDouble(asset_year * (1.0 - first_share));
    asset_year = assetYear(year);
    const Currency start_of_next = Currency::fromDouble(asset_year * first_share);
    amounts[year] = Currency::fromDoubleTo2HalfEven((rest_of_last + start_of_next).toDouble());
    total += amounts[year];
  }
  if (!input.fullYear()) {
    // Not rounded to cents: settling the rest brings the sum out exactly.
    amounts[input.yearAfterLast()] = Currency::fromDouble(asset_year * (1.0 - first_share));
    total += amounts[input.yearAfterLast()];
  }
  settleRest(input, total, amounts);
}

}  // namespace depcalc
