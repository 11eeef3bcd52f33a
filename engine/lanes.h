// Numbers and money without checks, for assets that are known to need none.
//
// Money is kept as a double that counts ten-thousandths. Every whole number below 2^51 is a double,
// and so are the sums and differences of such numbers; so nothing is lost by that, and a division
// has no integer to convert first. `fitsInLane` says beforehand that no step of a schedule will
// leave that range, divide by zero or lack an amount to write to: then no step has to look.
#pragma once

#include <cmath>

#include "engine/schedule.h"
#include "engine/told_steps.h"
#include "values/currency.h"
#include "values/rounding.h"

namespace depcalc {

/// What basis and salvage value of an asset in a lane are below in size, and how long it lasts.
inline constexpr double most_in_lane = 100'000'000.0;
inline constexpr double longest_life_in_lane = 100.0;

/// Whether the schedules of `input` can be calculated without a check.
///
/// By straight line and by the digits a year takes at most twice the depreciable base, itself below
/// twice the limit; the declining balance takes at most twice the book value, which never grows,
/// since from a life of one year on its rate is at most 2. Over 102 years the total stays below
/// 10^11 in money, 10^15 in ten-thousandths, and that below 2^51.
inline bool fitsInLane(const ScheduleInput& input) {
  constexpr auto most = static_cast<std::int64_t>(most_in_lane) * Currency::ticks_per_unit;
  const auto within = [](Currency amount) {
    return amount.ticks() < most && amount.ticks() > -most;
  };
  return within(input.basis) && within(input.salvage) && input.life >= 1.0 &&
         input.life <= longest_life_in_lane && input.first_year_fraction >= 0.0 &&
         input.first_year_fraction <= 1.0;
}

/// Stands for double.
template <typename V>
class LaneNumber {
 public:
  LaneNumber(V value) : value_(value) {}

  [[nodiscard]] V value() const { return value_; }

  friend LaneNumber operator+(LaneNumber a, LaneNumber b) { return a.value_ + b.value_; }
  friend LaneNumber operator-(LaneNumber a, LaneNumber b) { return a.value_ - b.value_; }
  friend LaneNumber operator*(LaneNumber a, LaneNumber b) { return a.value_ * b.value_; }
  friend LaneNumber operator/(LaneNumber a, LaneNumber b) { return a.value_ / b.value_; }
  friend auto operator==(LaneNumber a, LaneNumber b) { return a.value_ == b.value_; }

  friend LaneNumber divide(LaneNumber dividend, LaneNumber divisor) { return dividend / divisor; }
  friend LaneNumber toInteger16HalfEven(LaneNumber number) { return number.whole(); }

  /// The nearest whole number of one below `small_magnitude`, halves to even, by the same sum as
  /// `nearestEvenSmall`.
  [[nodiscard]] LaneNumber whole() const { return value_ + whole_shift - whole_shift; }

 private:
  V value_;
};

/// Stands for Currency.
template <typename V>
class LaneMoney {
 public:
  LaneMoney() : ticks_{} {}
  explicit LaneMoney(Currency amount) : ticks_(static_cast<double>(amount.ticks())) {}
  explicit operator Currency() const {
    return Currency::fromTicks(static_cast<std::int64_t>(ticks_));
  }

  static LaneMoney fromDouble(LaneNumber<V> number) {
    return LaneMoney((number * 10'000.0).whole().value());
  }
  static LaneMoney fromDoubleTo2HalfEven(LaneNumber<V> number) {
    return LaneMoney((number * 100.0).whole().value() * 100.0);
  }

  [[nodiscard]] LaneNumber<V> toDouble() const { return ticks_ / 10'000.0; }

  /// The nearest ten-thousandth to `fromDouble(toDouble() * factor)`, for a factor from 0 to 2.
  /// That divides by 10,000, multiplies twice and rounds each time, and so ends within 2^-10 of the
  /// plain product of the ticks, since that is below 2^41. Unless the product is nearly half way
  /// between two ticks, it rounds to the same one; then nobody has to wait for a division.
  [[nodiscard]] LaneMoney times(LaneNumber<V> factor) const {
    const V product = ticks_ * factor.value();
    const V whole = LaneNumber<V>(product).whole().value();
    if (std::fabs(product - whole) > 0.498) return fromDouble(toDouble() * factor);
    return LaneMoney(whole);
  }

  friend LaneMoney operator+(LaneMoney a, LaneMoney b) { return LaneMoney(a.ticks_ + b.ticks_); }
  friend LaneMoney operator-(LaneMoney a, LaneMoney b) { return LaneMoney(a.ticks_ - b.ticks_); }
  friend auto operator<(LaneMoney a, LaneMoney b) { return a.ticks_ < b.ticks_; }
  friend auto operator==(LaneMoney a, LaneMoney b) { return a.ticks_ == b.ticks_; }
  friend auto operator!=(LaneMoney a, LaneMoney b) { return a.ticks_ != b.ticks_; }

 private:
  explicit LaneMoney(V ticks) : ticks_(ticks) {}

  V ticks_;
};

/// Stands for ScheduleInput.
struct LaneInput {
  explicit LaneInput(const ScheduleInput& input)
      : basis(input.basis),
        salvage(input.salvage),
        life(input.life),
        first_year_fraction(input.first_year_fraction),
        full_year(input.fullYear()),
        last_whole_year(static_cast<std::int32_t>(nearestEvenSmall(input.life - 1.0))),
        year_after_last(static_cast<std::int32_t>(nearestEvenSmall(input.life))) {}

  [[nodiscard]] bool fullYear() const { return full_year; }
  [[nodiscard]] bool lasts(std::int32_t years) const {
    return static_cast<double>(years) == life.value();
  }
  [[nodiscard]] std::int32_t lastWholeYear() const { return last_whole_year; }
  [[nodiscard]] std::int32_t yearAfterLast() const { return year_after_last; }

  LaneMoney<double> basis;
  LaneMoney<double> salvage;
  LaneNumber<double> life;
  LaneNumber<double> first_year_fraction;
  bool full_year;
  std::int32_t last_whole_year;
  std::int32_t year_after_last;
};

/// Stands for Amounts.
class LaneAmounts {
 public:
  explicit LaneAmounts(Currency* first) : first_(first) {}

  Currency& operator[](std::int32_t index) const { return first_[index]; }
  [[nodiscard]] bool isTaken(std::int32_t index) const { return first_[index] != Currency(); }

 private:
  Currency* first_;
};

/// Listens to nothing of an asset that fits in a lane.
struct SilentUnchecked : Nobody<LaneNumber<double>, LaneMoney<double>> {
  /// To calculate takes less time than to guess wrong whether it is needed.
  static constexpr bool whereNeeded(bool /*condition*/) { return true; }
  static constexpr bool both(bool one, bool other) { return (one & other) != 0; }
  static constexpr std::int32_t choose(bool condition, std::int32_t yes, std::int32_t no) {
    return no + (yes - no) * static_cast<std::int32_t>(condition);
  }
};
static_assert(Listener<SilentUnchecked>);

/// Calculates `input` by a rule with nobody to listen, without checks where it needs none.
template <typename Rule>
void unheard(const ScheduleInput& input, Amounts amounts, Rule rule) {
  if (fitsInLane(input) && static_cast<double>(amounts.size()) >= input.life + 1.5) {
    SilentUnchecked nobody;
    rule(LaneInput(input), LaneAmounts(amounts.data()), nobody);
  } else {
    Silent nobody;
    rule(input, amounts, nobody);
  }
}

}  // namespace depcalc
