// A number as its decimal digits: the form in which texts are read and written and in which
// displayed numbers are rounded.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace depcalc {

/// The number 0.d1d2d3… × 10^point with d1 not 0; no digits at all for zero.
struct DecimalDigits {
  bool negative = false;
  std::string digits;  ///< '0' to '9', neither leading nor trailing zeros
  int point = 0;       ///< how many of the digits stand before the decimal point

  /// The value of a double as its 15 significant digits; one that is not finite is error 6.
  static DecimalDigits of(double value);
  /// A numeric text, exactly as written (see number_text.h); empty when it is not numeric.
  static std::optional<DecimalDigits> ofText(std::string_view text);

  /// Rounded to `places` decimals, halves to even. Zero loses its sign.
  [[nodiscard]] DecimalDigits roundedHalfEven(int places) const;
};

}  // namespace depcalc
