// Double-declining-balance depreciation: the diminishing balance method (IAS 16, paragraph 62) at
// twice the straight-line rate, the "200 percent declining balance" of the United States' tax
// rules, here without their switch to straight line.
#pragma once

#include "engine/schedule.h"

namespace depcalc {

/// What may still be taken before an asset is down to its salvage value.
inline Currency leftAboveSalvage(Currency basis, Currency taken, Currency salvage) {
  return basis - taken - salvage;
}

/// Whether `amount`, taken after `accumulated` has been taken, would carry an asset below its
/// salvage value. Exactly down to it would not. `accumulated` counts to four decimals.
bool fullyDepreciated(Currency basis, Currency salvage, double amount, double accumulated);

/// Each asset year takes 2 / life of the book value, which starts at the full basis. Salvage is
/// only a floor: the year that would go below it takes what is left, and the schedule stops
/// there. It is never topped up to reach salvage, so its sum may stay below basis − salvage.
/// `amounts` starts all zero and holds indices 0 to life + 1. A life of 0 is error 11.
void doubleDecliningBalance(const ScheduleInput& input, Amounts amounts);

}  // namespace depcalc
