// Money.
#pragma once

#include <cmath>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "values/rounding.h"
#include "values/runtime_error.h"

namespace depcalc {

/// An amount of money: a signed 64-bit count of ten-thousandths, so four decimals are exact
/// from -922,337,203,685,477.5808 to 922,337,203,685,477.5807. There is no way to or from a
/// floating type but the ones named below. A sum or difference out of range is error 6.
class Currency {
 public:
  static constexpr std::int64_t ticks_per_unit = 10'000;

  constexpr Currency() = default;

  static constexpr Currency fromTicks(std::int64_t ticks) { return Currency(ticks); }

  /// The nearest ten-thousandth, halves to even. Not a number or out of range: error 6.
  static Currency fromDouble(double value) {
    const double ticks = value * 10'000.0;
    if (std::fabs(ticks) < small_magnitude) return Currency(nearestEvenSmall(ticks));
    return fromLargeTicks(ticks);
  }

  /// The value rounded to cents first, halves to even, then as above. For all but enormous
  /// amounts the cents are whole in the end too, and a division is saved.
  static Currency fromDoubleTo2HalfEven(double value) {
    const double cents = value * 100.0;
    if (std::fabs(cents) < 1e13) return Currency(nearestEvenSmall(cents) * 100);
    return fromDouble(nearestEven(cents) / 100.0);
  }

  /// The decimal text read exactly, halves to even at the fourth decimal; never through a
  /// double. Not a number (see number_text.h): error 13. Out of range: error 6.
  static Currency fromText(std::string_view text);

  [[nodiscard]] constexpr std::int64_t ticks() const { return ticks_; }
  [[nodiscard]] double toDouble() const { return static_cast<double>(ticks_) / 10'000.0; }

  /// The amount times `factor`, rounded as `fromDouble` does.
  [[nodiscard]] Currency times(double factor) const { return fromDouble(toDouble() * factor); }

  /// Up to four decimals, trailing zeros dropped, no separators: 1250.5, 0, -0.0001.
  [[nodiscard]] std::string toText() const;

  /// Always four decimals, no separators, decimal point ".": 1250.5000. The form of data files.
  [[nodiscard]] std::string toFixed4() const;
  /// The same into a caller's buffer of at least `fixed4_size`; returns the end of the text.
  static constexpr std::size_t fixed4_size = 24;
  char* writeFixed4(char* out) const;
  /// The amount that `toFixed4` writes so; empty for any other text.
  static std::optional<Currency> tryFromFixed4(std::string_view text);

  friend constexpr auto operator<=>(Currency, Currency) = default;

  friend constexpr Currency operator+(Currency a, Currency b) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a.ticks_, b.ticks_, &sum)) throw RuntimeError::overflow();
    return Currency(sum);
  }
  friend constexpr Currency operator-(Currency a, Currency b) {
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(a.ticks_, b.ticks_, &difference)) throw RuntimeError::overflow();
    return Currency(difference);
  }
  constexpr Currency& operator+=(Currency b) { return *this = *this + b; }
  constexpr Currency& operator-=(Currency b) { return *this = *this - b; }

 private:
  explicit constexpr Currency(std::int64_t ticks) : ticks_(ticks) {}

  static Currency fromLargeTicks(double ticks);

  std::int64_t ticks_ = 0;
};

}  // namespace depcalc
