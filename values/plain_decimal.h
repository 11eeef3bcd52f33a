// The short way for numbers as people write them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "values/en_us.h"
#include "values/text.h"

namespace depcalc {

/// A number written with at most 15 digits and no exponent: `mantissa` / 10^`decimals`, exactly.
/// Both are whole numbers that a double holds, and 15 digits survive the way through a double,
/// so what follows from a PlainDecimal is what follows from DecimalDigits, only faster.
struct PlainDecimal {
  static constexpr std::int64_t most_digits = 15;

  std::int64_t mantissa = 0;
  std::int64_t decimals = -1;  ///< below 0 there is no number

  constexpr explicit operator bool() const { return decimals >= 0; }
};

/// 10^`exponent` for 0 to 15.
constexpr std::int64_t powerOfTen(std::int64_t exponent) {
  constexpr auto powers = [] {
    std::array<std::int64_t, PlainDecimal::most_digits + 1> table{1};
    for (std::size_t i = 1; i < table.size(); ++i) table[i] = table[i - 1] * 10;
    return table;
  }();
  return powers[static_cast<std::size_t>(exponent)];
}

/// None for every text that is not numeric, and for numeric texts that need the long way: more
/// digits, more than 18 characters, an exponent, a negative zero.
PlainDecimal plainDecimal(std::string_view text);

}  // namespace depcalc
