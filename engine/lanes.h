// Numbers and money without checks, for assets that are known to need none: of one asset, or of
// several side by side in a vector.
//
// Money is kept as doubles that count ten-thousandths. Every whole number below 2^51 is a double,
// and so are the sums and differences of such numbers; so nothing is lost by that, and a division
// has no integer to convert first. `fitsInLane` says beforehand that no step of a schedule will
// leave that range, divide by zero or lack an amount to write to: then no step has to look.
#pragma once

#include <array>
#include <cmath>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

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
/// twice the limit; the declining balance takes at most twice the book value, which does not grow
/// but by rounding, since from a life of one year on its rate is at most 2. Over 102 years the
/// total stays below 10^11 in money, 10^15 in ten-thousandths, and that below 2^51.
inline bool fitsInLane(const ScheduleInput& input) {
  constexpr auto most = static_cast<std::int64_t>(most_in_lane) * Currency::ticks_per_unit;
  const auto within = [](Currency amount) {
    return amount.ticks() < most && amount.ticks() > -most;
  };
  return within(input.basis) && within(input.salvage) && input.life >= 1.0 &&
         input.life <= longest_life_in_lane && input.first_year_fraction >= 0.0 &&
         input.first_year_fraction <= 1.0;
}

/// Whether a comparison of vectors holds for any lane.
template <typename Bits>
bool isAnyBit(const Bits& bits) {
#ifdef __SSE2__
  __m128i found = _mm_setzero_si128();
  for (std::size_t at = 0; at < sizeof bits; at += sizeof found) {
    __m128i pair;
    std::memcpy(&pair, reinterpret_cast<const char*>(&bits) + at, sizeof pair);
    found = _mm_or_si128(found, pair);
  }
  return _mm_movemask_epi8(found) != 0;
#else
  auto found = bits[0];
  for (std::size_t i = 1; i < sizeof(Bits) / sizeof(bits[0]); ++i) found |= bits[i];
  return found != 0;
#endif
}

/// For which assets of a vector V something holds.
template <typename V>
class LaneMask {
 public:
  using Bits = decltype(V() < V());

  LaneMask(const Bits& bits) : bits_(bits) {}
  // So that it is handed on by address: how a vector is by value depends on what a function is
  // compiled for, and that differs between the one that has its registers and those it calls.
  LaneMask(const LaneMask& other) : bits_(other.bits_) {}
  LaneMask& operator=(const LaneMask& other) = default;

  [[nodiscard]] const Bits& bits() const { return bits_; }

  friend LaneMask operator&(const LaneMask& a, const LaneMask& b) {
    return Bits(a.bits_ & b.bits_);
  }
  friend LaneMask operator|(const LaneMask& a, const LaneMask& b) {
    return Bits(a.bits_ | b.bits_);
  }
  friend LaneMask operator!(const LaneMask& a) { return Bits(a.bits_ == Bits{}); }

  friend bool isAny(const LaneMask& mask) { return isAnyBit(mask.bits_); }

 private:
  Bits bits_;
};
inline bool isAny(bool condition) { return condition; }

template <typename V>
using LaneCondition = std::conditional_t<std::same_as<V, double>, bool, LaneMask<V>>;

/// Stands for double.
template <typename V>
class LaneNumber {
 public:
  LaneNumber(const V& value) : value_(value) {}
  LaneNumber(double value) requires(!std::same_as<V, double>) : value_(V{} + value) {}
  LaneNumber(const LaneNumber& other) : value_(other.value_) {}
  LaneNumber& operator=(const LaneNumber& other) = default;

  [[nodiscard]] const V& value() const { return value_; }

  friend LaneNumber operator+(const LaneNumber& a, const LaneNumber& b) {
    return V(a.value_ + b.value_);
  }
  friend LaneNumber operator-(const LaneNumber& a, const LaneNumber& b) {
    return V(a.value_ - b.value_);
  }
  friend LaneNumber operator*(const LaneNumber& a, const LaneNumber& b) {
    return V(a.value_ * b.value_);
  }
  friend LaneNumber operator/(const LaneNumber& a, const LaneNumber& b) {
    return V(a.value_ / b.value_);
  }

  friend LaneNumber divide(const LaneNumber& dividend, const LaneNumber& divisor) {
    return dividend / divisor;
  }
  friend LaneNumber toInteger16HalfEven(const LaneNumber& number) { return number.whole(); }

  /// The nearest whole number of one below `small_magnitude`, halves to even, by the same sum as
  /// `nearestEvenSmall`.
  [[nodiscard]] LaneNumber whole() const { return V(value_ + whole_shift - whole_shift); }

 private:
  V value_;
};

/// Stands for Currency.
template <typename V>
class LaneMoney {
 public:
  using Number = LaneNumber<V>;
  using Condition = LaneCondition<V>;

  LaneMoney() : ticks_{} {}
  explicit LaneMoney(Currency amount) requires std::same_as<V, double>
      : ticks_(static_cast<double>(amount.ticks())) {}
  explicit LaneMoney(const V& ticks) : ticks_(ticks) {}
  LaneMoney(const LaneMoney& other) : ticks_(other.ticks_) {}
  LaneMoney& operator=(const LaneMoney& other) = default;
  explicit operator Currency() const requires std::same_as<V, double> {
    return Currency::fromTicks(static_cast<std::int64_t>(ticks_));
  }

  static LaneMoney fromDouble(const Number& number) {
    return LaneMoney((number * 10'000.0).whole().value());
  }
  static LaneMoney fromDoubleTo2HalfEven(const Number& number) {
    return LaneMoney(((number * 100.0).whole() * 100.0).value());
  }

  [[nodiscard]] const V& ticks() const { return ticks_; }
  [[nodiscard]] Number toDouble() const { return Number(ticks_) / 10'000.0; }

  /// The nearest ten-thousandth to `fromDouble(toDouble() * factor)`, for a factor from 0 to 2.
  /// That divides by 10,000, multiplies twice and rounds each time, and so ends within 2^-10 of the
  /// plain product of the ticks, since that is below 2^41. Unless the product is nearly half way
  /// between two ticks, it rounds to the same one; then nobody has to wait for a division.
  [[nodiscard]] LaneMoney times(const Number& factor) const {
    const Number product = Number(ticks_) * factor;
    const Number whole = product.whole();
    const V off = (product - whole).value();
    if (isAny(Condition((off > 0.498) | (off < -0.498)))) return fromDouble(toDouble() * factor);
    return LaneMoney(whole.value());
  }

  friend LaneMoney operator+(const LaneMoney& a, const LaneMoney& b) {
    return LaneMoney(V(a.ticks_ + b.ticks_));
  }
  friend LaneMoney operator-(const LaneMoney& a, const LaneMoney& b) {
    return LaneMoney(V(a.ticks_ - b.ticks_));
  }
  friend Condition operator<(const LaneMoney& a, const LaneMoney& b) { return a.ticks_ < b.ticks_; }
  friend Condition operator!=(const LaneMoney& a, const LaneMoney& b) {
    return a.ticks_ != b.ticks_;
  }

 private:
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
