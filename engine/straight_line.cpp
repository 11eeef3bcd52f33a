#include "engine/straight_line.h"

namespace depcalc {

void straightLine(const ScheduleInput& input, Amounts amounts) {
  Silent nobody;
  straightLine(input, amounts, nobody);
}

}  // namespace depcalc
