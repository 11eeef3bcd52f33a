// Rounding and checked arithmetic on doubles. Doubles become whole numbers or cents by these rules;
// halves always go to the even neighbour ("banker's rounding"). Currency rounds its own integers
// and dates their day numbers, by the same rule, in currency.cpp and date.cpp.
#pragma once

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>

#include "values/runtime_error.h"

namespace depcalc {

static_assert(FLT_EVAL_METHOD == 0, "money needs plain IEEE doubles, without excess precision");

/// Below this magnitude `nearestEvenSmall` holds: 2^51.
inline constexpr double small_magnitude = 2251799813685248.0;

/// 1.5 × 2^52. Added to a number below `small_magnitude`, it leaves no room for a fraction in the
/// sum.
inline constexpr double whole_shift = 6755399441055744.0;

/// The nearest whole number of an `x` below `small_magnitude`, halves to even. The bits of its sum
/// with `whole_shift` count in whole numbers; so no library call and no conversion is needed.
inline std::int64_t nearestEvenSmall(double x) {
  return std::bit_cast<std::int64_t>(x + whole_shift) - std::bit_cast<std::int64_t>(whole_shift);
}

/// The nearest whole number, halves to even; what std::nearbyint gives in the default rounding
/// mode.
inline double nearestEven(double x) {
  if (std::fabs(x) < small_magnitude) return static_cast<double>(nearestEvenSmall(x));
  return std::nearbyint(x);
}

/// A 16-bit integer by rounding, halves to even. Out of range or not a number: error 6.
inline std::int16_t toInteger16HalfEven(double x) {
  const double whole = nearestEven(x);
  if (!(whole >= INT16_MIN && whole <= INT16_MAX)) throw RuntimeError::overflow();
  return static_cast<std::int16_t>(whole);
}

/// A 32-bit integer by rounding, halves to even. Out of range or not a number: error 6.
inline std::int32_t toLong32HalfEven(double x) {
  if (!(std::fabs(x) < small_magnitude)) throw RuntimeError::overflow();
  const std::int64_t whole = nearestEvenSmall(x);
  if (whole < INT32_MIN || whole > INT32_MAX) throw RuntimeError::overflow();
  return static_cast<std::int32_t>(whole);
}

/// `dividend / divisor`. A divisor of 0 is error 11, or 6 where the dividend is 0 too; a result
/// that is not finite is error 6.
inline double divide(double dividend, double divisor) {
  if (divisor == 0.0) {
    throw dividend == 0.0 ? RuntimeError::overflow() : RuntimeError::divisionByZero();
  }
  const double quotient = dividend / divisor;
  if (!std::isfinite(quotient)) throw RuntimeError::overflow();
  return quotient;
}

}  // namespace depcalc
