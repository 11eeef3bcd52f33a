// Numbers and money without checks, of one asset or of several side by side in a vector V.
//
// Money is kept as doubles that count ten-thousandths. Every whole number below 2^51 is a double,
// and so are the sums and differences of such numbers; so nothing is lost by that, and a division
// has no integer to convert first.
#pragma once

#include <concepts>
#include <cstring>
#include <type_traits>

#include "values/currency.h"
#include "values/rounding.h"

namespace depcalc {

/// Whether a comparison of vectors holds for any lane.
template <typename Bits>
bool isAnyBit(const Bits& bits) {
#ifdef __SSE2__
  using Pair __attribute__((vector_size(16))) = char;
  Pair found{};
  for (std::size_t at = 0; at < sizeof bits; at += sizeof found) {
    Pair pair{};
    std::memcpy(&pair, reinterpret_cast<const char*>(&bits) + at, sizeof pair);
    found |= pair;
  }
  return __builtin_ia32_pmovmskb128(found) != 0;
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

}  // namespace depcalc
