#include "values/display_format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "values/decimal_digits.h"
#include "values/en_us.h"
#include "values/number_text.h"
#include "values/plain_decimal.h"
#include "values/written_number.h"

namespace depcalc {
namespace {

/// The digits before the point in groups of three, at least one digit.
std::string groupedInteger(const DecimalDigits& number, char separator) {
  if (number.point <= 0) return "0";
  const auto length = static_cast<std::size_t>(number.point);
  std::string text;
  for (std::size_t i = 0; i < length; ++i) {
    if (i > 0 && (length - i) % 3 == 0) text += separator;
    text += i < number.digits.size() ? number.digits[i] : '0';
  }
  return text;
}

std::string decimalPart(const DecimalDigits& number, int places) {
  std::string text;
  for (int i = number.point; i < number.point + places; ++i) {
    const bool written = i >= 0 && i < static_cast<int>(number.digits.size());
    text += written ? number.digits[static_cast<std::size_t>(i)] : '0';
  }
  return text;
}

std::string grouped(const DecimalDigits& exact, int places) {
  const DecimalDigits number = exact.roundedHalfEven(places);
  std::string text = number.negative ? "-" : "";
  text += groupedInteger(number, en_us::thousands_separator);
  if (places > 0) text.append(1, en_us::decimal_point).append(decimalPart(number, places));
  return text;
}

/// `number` with its digits in groups of three.
std::string groupedWhole(std::int64_t number, char separator) {
  const std::string digits = std::to_string(number < 0 ? -number : number);
  std::string text = number < 0 ? "-" : "";
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) text += separator;
    text += digits[i];
  }
  return text;
}

/// `value` rounded to `places` decimals (0 to 4), halves to even, in groups of three. An amount is
/// whole ten-thousandths, so no digits need to be parted first.
std::string grouped(Currency value, int places) {
  const bool below_zero = value.ticks() < 0;
  const auto bits = static_cast<std::uint64_t>(value.ticks());
  const std::uint64_t magnitude = below_zero ? 0 - bits : bits;
  const auto unit = static_cast<std::uint64_t>(powerOfTen(4 - places));
  std::uint64_t number = magnitude / unit;
  const std::uint64_t twice_rest = magnitude % unit * 2;
  if (twice_rest > unit || (twice_rest == unit && number % 2 == 1)) ++number;

  std::array<char, 40> text;
  char* const end = text.data() + text.size();
  char* begin = end;
  const bool negative = below_zero && number != 0;
  for (int digits = 0; digits <= places || number != 0; ++digits, number /= 10) {
    if (digits == places && places > 0) *--begin = en_us::decimal_point;
    if (digits > places && (digits - places) % 3 == 0) *--begin = en_us::thousands_separator;
    *--begin = static_cast<char>('0' + number % 10);
  }
  if (negative) *--begin = '-';
  return {begin, end};
}

}  // namespace

std::string formatMoney(Currency value) { return grouped(value, 2); }
std::string formatMoney(double value) { return grouped(DecimalDigits::of(value), 2); }

std::string formatExactMoney(Currency value) {
  const std::int64_t ticks = value.ticks();
  return grouped(value, ticks % 100 == 0 ? 2 : ticks % 10 == 0 ? 3 : 4);
}

Currency moneyAsShown(std::string_view text) { return WrittenNumber(text).asShown(); }

std::string formatRate(Currency value) { return grouped(value, 4); }

std::string formatWhole(double value) {
  constexpr double exact_digits = 1e15;
  if (std::fabs(value) < exact_digits && value == std::trunc(value)) {
    return groupedWhole(static_cast<std::int64_t>(value), en_us::thousands_separator);
  }
  return grouped(DecimalDigits::of(value), 0);
}

std::string formatCutShort(double value, int least, int most) {
  const std::string text = plainNumberText(std::fabs(value));
  const std::size_t point = std::min(text.find('.'), text.size());
  std::string shown = value < 0.0 ? "-" : "";
  for (std::size_t i = 0; i < point; ++i) {
    if (i > 0 && (point - i) % 3 == 0) shown += en_us::thousands_separator;
    shown += text[i];
  }
  std::string decimals = text.substr(std::min(point + 1, text.size()));
  const bool cut = decimals.size() > static_cast<std::size_t>(most);
  decimals.resize(
      std::clamp(decimals.size(), static_cast<std::size_t>(least), static_cast<std::size_t>(most)),
      '0');
  if (!decimals.empty()) shown.append(1, en_us::decimal_point).append(decimals);
  return cut ? shown + "…" : shown;
}

}  // namespace depcalc
