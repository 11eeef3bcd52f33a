// The short way for numbers as people write them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace depcalc {

/// A number written with at most 15 digits and no exponent: `mantissa` / 10^`decimals`, exactly.
/// Both are whole numbers that a double holds, and 15 digits survive the way through a double,
/// so what follows from a PlainDecimal is what follows from DecimalDigits, only faster.
struct PlainDecimal {
  std::int64_t mantissa = 0;
  int decimals = 0;
};

/// Empty for every text that is not numeric, and for numeric texts that need the long way:
/// more digits, an exponent, a negative zero.
std::optional<PlainDecimal> plainDecimal(std::string_view text);

/// 10^`exponent` for 0 to 15.
std::int64_t powerOfTen(int exponent);

}  // namespace depcalc
