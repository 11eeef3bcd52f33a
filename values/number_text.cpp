#include "values/number_text.h"

#include <array>
#include <charconv>
#include <cmath>

#include "values/decimal_digits.h"
#include "values/en_us.h"
#include "values/runtime_error.h"
#include "values/written_number.h"

namespace depcalc {
namespace {

constexpr int most_integer_digits = 15;
constexpr int most_decimals = 15;

std::string fixedText(const DecimalDigits& number, char decimal_point) {
  const auto size = static_cast<int>(number.digits.size());
  std::string text;
  if (number.point <= 0) {
    text.append("0").append(1, decimal_point);
    text.append(static_cast<std::size_t>(-number.point), '0').append(number.digits);
  } else if (number.point >= size) {
    text.append(number.digits).append(static_cast<std::size_t>(number.point - size), '0');
  } else {
    const auto point = static_cast<std::size_t>(number.point);
    text.append(number.digits, 0, point).append(1, decimal_point).append(number.digits, point);
  }
  return text;
}

std::string scientificText(const DecimalDigits& number, char decimal_point) {
  std::string text = number.digits.substr(0, 1);
  if (number.digits.size() > 1) text.append(1, decimal_point).append(number.digits, 1);
  const int exponent = number.point - 1;
  const std::string magnitude = std::to_string(exponent < 0 ? -exponent : exponent);
  text.append(exponent < 0 ? "E-" : "E+");
  if (magnitude.size() < 2) text += '0';
  return text.append(magnitude);
}

}  // namespace

std::optional<double> tryNumberFromText(std::string_view text) {
  return WrittenNumber(text).tryValue();
}

bool isNumeric(std::string_view text) { return WrittenNumber(text).isNumeric(); }

double numberFromText(std::string_view text) { return WrittenNumber(text).value(); }

std::string numberToText(double value) {
  const DecimalDigits number = DecimalDigits::of(value);
  if (number.digits.empty()) return "0";
  const int decimals = static_cast<int>(number.digits.size()) - number.point;
  const bool fixed = number.point <= most_integer_digits && decimals <= most_decimals;
  const std::string text = fixed ? fixedText(number, en_us::decimal_point)
                                 : scientificText(number, en_us::decimal_point);
  return number.negative ? "-" + text : text;
}

std::string exactNumberText(double value) {
  if (!std::isfinite(value)) throw RuntimeError::overflow();
  std::array<char, 32> text;
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific);
  return {text.data(), end.ptr};
}

std::string shortestNumberText(double value) {
  if (!std::isfinite(value)) throw RuntimeError::overflow();
  std::array<char, 32> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), end.ptr};
}

std::string plainNumberText(double value) {
  if (!std::isfinite(value)) throw RuntimeError::overflow();
  // 309 digits before the point at most, or 1074 after it.
  std::array<char, 1'100> text;
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value + 0.0, std::chars_format::fixed);
  return {text.data(), end.ptr};
}

}  // namespace depcalc
