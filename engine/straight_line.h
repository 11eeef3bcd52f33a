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

}  // namespace depcalc
