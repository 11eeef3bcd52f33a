// What the three schedules work on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/convention.h"
#include "engine/told_steps.h"
#include "values/currency.h"
#include "values/rounding.h"

namespace depcalc {

/// What a schedule of depreciation is computed from.
struct ScheduleInput {
  Currency basis;    ///< cost of placing the asset in service
  Currency salvage;  ///< residual value at the end of the useful life
  double life = 0;   ///< useful life in years; may be fractional
  std::int32_t convention = cdepfullyear;
  double first_year_fraction = 0;  ///< share of a year's depreciation in the first fiscal year

  template <Listener L>
  [[nodiscard]] typename L::Money depreciableBase(L& listener) const {
    return listener.tell(RuleStep::base, typename L::Money(basis) - typename L::Money(salvage));
  }
  [[nodiscard]] bool fullYear() const { return convention == cdepfullyear; }

  /// Index of the last of `life` whole fiscal years, and of the one after it, which takes what
  /// a partial first year left over.
  [[nodiscard]] std::int32_t lastWholeYear() const { return toLong32HalfEven(life - 1.0); }
  [[nodiscard]] std::int32_t yearAfterLast() const { return toLong32HalfEven(life); }
};

/// Amounts per fiscal year, 0 being the one in which the asset was placed in service. A schedule
/// writes into its caller's storage, so that what was computed before an error stays to be seen.
/// An index outside it is error 9.
class Amounts {
 public:
  explicit Amounts(std::span<Currency> storage) : storage_(storage) {}

  Currency& operator[](std::int32_t index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= storage_.size()) {
      throw RuntimeError::subscriptOutOfRange();
    }
    return storage_[static_cast<std::size_t>(index)];
  }

 private:
  std::span<Currency> storage_;
};

/// Of `life` years, indices 0 to life + 1. An upper bound below 0 is error 9.
inline std::size_t amountCount(double life) {
  const std::int32_t upper = toLong32HalfEven(life + 1.0);
  if (upper < 0) throw RuntimeError::subscriptOutOfRange();
  return static_cast<std::size_t>(upper) + 1;
}

/// Puts the rounding difference of a schedule that must sum to the depreciable `base` on the last
/// year that has an amount.
template <Listener L>
void settleRest(const ScheduleInput& input, typename L::Money base, typename L::Money total,
                Amounts amounts, L& listener) {
  using Money = typename L::Money;
  const Money rest = base - total;
  if (rest == Money()) return;
  const bool year_after_last = !input.fullYear() && amounts[input.yearAfterLast()] != Currency();
  const std::int32_t year = year_after_last ? input.yearAfterLast() : input.lastWholeYear();
  Currency& amount = amounts[year];
  listener.beginYear(year);
  listener.take(amount, RuleStep::settled,
                Money(amount) + listener.tell(RuleStep::difference, rest));
}

}  // namespace depcalc
