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

  [[nodiscard]] bool fullYear() const { return convention == cdepfullyear; }
  /// Exactly so many years.
  [[nodiscard]] bool lasts(std::int32_t years) const { return static_cast<double>(years) == life; }

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
  [[nodiscard]] bool isTaken(std::int32_t index) const { return (*this)[index] != Currency(); }
  [[nodiscard]] std::size_t size() const { return storage_.size(); }
  [[nodiscard]] Currency* data() const { return storage_.data(); }

 private:
  std::span<Currency> storage_;
};

/// Of `life` years, indices 0 to life + 1. An upper bound below 0 is error 9.
inline std::size_t amountCount(double life) {
  const std::int32_t upper = toLong32HalfEven(life + 1.0);
  if (upper < 0) throw RuntimeError::subscriptOutOfRange();
  return static_cast<std::size_t>(upper) + 1;
}

template <Listener L, typename Input>
typename L::Money depreciableBase(const Input& input, L& listener) {
  using Money = typename L::Money;
  return listener.tell(RuleStep::base, Money(input.basis) - Money(input.salvage));
}

/// Puts the rounding difference of a schedule that must sum to the depreciable `base` on the last
/// year that has an amount.
template <Listener L, typename Input, typename Storage>
void settleRest(const Input& input, const typename L::Money& base, const typename L::Money& total,
                Storage amounts, L& listener) {
  using Money = typename L::Money;
  const Money rest = base - total;
  if (const auto those = listener.whereNeeded(rest != Money())) {
    const auto after_last = input.yearAfterLast();
    const auto ends_there = listener.both(!input.fullYear(), amounts.isTaken(after_last));
    const auto year = listener.choose(ends_there, after_last, input.lastWholeYear());
    listener.beginYear(year);
    listener.take(amounts[year], RuleStep::settled,
                  Money(amounts[year]) + listener.tell(RuleStep::difference, rest));
  }
}

}  // namespace depcalc
