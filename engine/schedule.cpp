#include "engine/schedule.h"

namespace depcalc {

void settleRest(const ScheduleInput& input, Currency total, Amounts amounts) {
  const Currency rest = input.depreciableBase() - total;
  if (rest == Currency()) return;
  const bool year_after_last = !input.fullYear() && amounts[input.yearAfterLast()] != Currency();
  amounts[year_after_last ? input.yearAfterLast() : input.lastWholeYear()] += rest;
}

}  // namespace depcalc
