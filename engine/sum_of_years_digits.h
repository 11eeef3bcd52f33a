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

}  // namespace depcalc
