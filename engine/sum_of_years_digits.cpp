#include "engine/sum_of_years_digits.h"

#include "engine/lanes.h"

namespace depcalc {

void sumOfYearsDigits(const ScheduleInput& input, Amounts amounts) {
  unheard(input, amounts,
          [](const auto& of, auto into, auto& nobody) { sumOfYearsDigits(of, into, nobody); });
}

}  // namespace depcalc
