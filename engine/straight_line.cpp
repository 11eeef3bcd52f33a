#include "engine/straight_line.h"

#include "engine/lanes.h"

namespace depcalc {

void straightLine(const ScheduleInput& input, Amounts amounts) {
  unheard(input, amounts,
          [](const auto& of, auto into, auto& nobody) { straightLine(of, into, nobody); });
}

}  // namespace depcalc
