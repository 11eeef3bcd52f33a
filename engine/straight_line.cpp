#include "engine/straight_line.h"

namespace depcalc {

void straightLine(const ScheduleInput& input, Amounts amounts) {
  const double fraction = input.first_year_fraction;
  const double annual = divide(input.depreciableBase().toDouble(), input.life);

  amounts[0] = Currency::fromDoubleTo2HalfEven(annual * fraction);
  Currency total = amounts[0];

  const std::int32_t last = input.lastWholeYear();
  for (std::int32_t year = 1; year <= last; ++year) {
    amounts[year] = Currency::fromDoubleTo2HalfEven(annual);
    total += amounts[year];
  }
  if (!input.fullYear()) {
    // Not rounded to cents: settling the rest brings the sum out exactly.
    amounts[input.yearAfterLast()] = Currency::fromDouble(annual * (1.0 - fraction));
    total += amounts[input.yearAfterLast()];
  }
  settleRest(input, total, amounts);
}

}  // namespace depcalc
