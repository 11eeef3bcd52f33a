#include "values/written_number.h"

#include <charconv>
#include <string>

#include "values/decimal_digits.h"
#include "values/display_format.h"

namespace depcalc {
namespace {

/// A double from exact decimal digits, correctly rounded; empty when it is too large.
std::optional<double> toDouble(const DecimalDigits& number) {
  if (number.digits.empty()) return number.negative ? -0.0 : 0.0;
  std::string text = number.negative ? "-0." : "0.";
  text.append(number.digits).append("e").append(std::to_string(number.point));
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (number.point > 0) return std::nullopt;
    return number.negative ? -0.0 : 0.0;  // too small for a double is zero
  }
  return value;
}

}  // namespace

std::optional<double> WrittenNumber::longValue() const {
  const auto number = DecimalDigits::ofText(text_);
  return number ? toDouble(*number) : std::nullopt;
}

double WrittenNumber::requiredLongValue() const {
  const auto number = longValue();
  if (!number) throw RuntimeError::typeMismatch();
  return *number;
}

Currency WrittenNumber::longAmount() const {
  const auto written = DecimalDigits::ofText(text_);
  if (!written || !toDouble(*written)) throw RuntimeError::typeMismatch();
  const DecimalDigits number = written->roundedHalfEven(4);
  if (number.digits.empty()) return {};
  constexpr int most_digits = 19;  // of an int64
  if (number.point + 4 > most_digits) throw RuntimeError::overflow();
  std::string ticks = number.negative ? "-" : "";
  ticks.append(number.digits);
  ticks.append(static_cast<std::size_t>(number.point + 4) - number.digits.size(), '0');
  std::int64_t count = 0;
  if (std::from_chars(ticks.data(), ticks.data() + ticks.size(), count).ec != std::errc()) {
    throw RuntimeError::overflow();
  }
  return Currency::fromTicks(count);
}

Currency WrittenNumber::longAsShown() const { return Currency::fromText(formatMoney(value())); }

}  // namespace depcalc
