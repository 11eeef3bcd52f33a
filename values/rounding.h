// Rounding and checked arithmetic on doubles. Every rule of rounding to a whole number or to
// cents stands here once; halves always go to the even neighbour ("banker's rounding").
#pragma once

#include <cfloat>
#include <cmath>
#include <cstdint>

#include "values/runtime_error.h"

namespace depcalc {

static_assert(FLT_EVAL_METHOD == 0, "money needs plain IEEE doubles, without excess precision");

/// The nearest whole number, halves to even; what std::nearbyint gives in the default rounding
/// mode, without a library call. Adding and taking away 2^52 leaves no room for a fraction.
inline double nearestEven(double x) {
  constexpr double no_fraction = 4503599627370496.0;
  if (!(std::fabs(x) < no_fraction)) return x;
  const double shift = std::copysign(no_fraction, x);
  return (x + shift) - shift;
}

/// `x` rounded to two decimal places, halves to even.
inline double roundTo2HalfEven(double x) { return nearestEven(x * 100.0) / 100.0; }

/// A 16-bit integer by rounding, halves to even. Out of range or not a number: error 6.
inline std::int16_t toInteger16HalfEven(double x) {
  const double whole = nearestEven(x);
  if (!(whole >= INT16_MIN && whole <= INT16_MAX)) throw RuntimeError::overflow();
  return static_cast<std::int16_t>(whole);
}

/// A 32-bit integer by rounding, halves to even. Out of range or not a number: error 6.
inline std::int32_t toLong32HalfEven(double x) {
  const double whole = nearestEven(x);
  if (!(whole >= INT32_MIN && whole <= INT32_MAX)) throw RuntimeError::overflow();
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
