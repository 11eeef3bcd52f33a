#include "values/plain_decimal.h"

#include <array>

#include "values/en_us.h"
#include "values/text.h"

namespace depcalc {
namespace {

constexpr int most_digits = 15;

}  // namespace

std::optional<PlainDecimal> plainDecimal(std::string_view text) {
  text = trimmed(text);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  PlainDecimal number;
  int digits = 0;
  int before_point = -1;
  for (const char c : text) {
    if (const int digit = c - '0'; digit >= 0 && digit <= 9) {
      if (++digits > most_digits) return std::nullopt;
      number.mantissa = number.mantissa * 10 + digit;
    } else if (c == en_us::decimal_point && before_point < 0) {
      before_point = digits;
    } else if (c != en_us::thousands_separator || before_point >= 0) {
      return std::nullopt;
    }
  }
  if (before_point >= 0) number.decimals = digits - before_point;
  if (digits == 0 || (negative && number.mantissa == 0)) return std::nullopt;
  if (negative) number.mantissa = -number.mantissa;
  return number;
}

std::int64_t powerOfTen(int exponent) {
  static constexpr auto powers = [] {
    std::array<std::int64_t, most_digits + 1> table{1};
    for (std::size_t i = 1; i < table.size(); ++i) table[i] = table[i - 1] * 10;
    return table;
  }();
  return powers[static_cast<std::size_t>(exponent)];
}

}  // namespace depcalc
