#include "engine/double_declining_balance.h"

#include "engine/lanes.h"

namespace depcalc {

bool fullyDepreciated(Currency basis, Currency salvage, double amount, double accumulated) {
  const Currency left = leftAboveSalvage(basis, Currency::fromDouble(accumulated), salvage);
  return left.toDouble() < amount;
}

void doubleDecliningBalance(const ScheduleInput& input, Amounts amounts) {
  unheard(input, amounts, [](const auto& of, auto into, auto& nobody) {
    doubleDecliningBalance(of, into, nobody);
  });
}

}  // namespace depcalc
