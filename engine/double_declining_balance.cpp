#include "engine/double_declining_balance.h"

namespace depcalc {

bool fullyDepreciated(Currency basis, Currency salvage, double amount, double accumulated) {
  const Currency left = leftAboveSalvage(basis, Currency::fromDouble(accumulated), salvage);
  return left.toDouble() < amount;
}

void doubleDecliningBalance(const ScheduleInput& input, Amounts amounts) {
  Silent nobody;
  doubleDecliningBalance(input, amounts, nobody);
}

}  // namespace depcalc
