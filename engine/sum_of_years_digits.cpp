#include "engine/sum_of_years_digits.h"

namespace depcalc {

void sumOfYearsDigits(const ScheduleInput& input, Amounts amounts) {
  Silent nobody;
  sumOfYearsDigits(input, amounts, nobody);
}

}  // namespace depcalc
