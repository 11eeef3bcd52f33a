#include "values/decimal_digits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "values/en_us.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

/// Exponents are saturated here: far beyond any double, far within an int.
constexpr int exponent_limit = 1'000'000;

DecimalDigits normalised(DecimalDigits number) {
  const auto leading = number.digits.find_first_not_of('0');
  if (leading == std::string::npos) return DecimalDigits{number.negative, "", 0};
  number.digits.erase(0, leading);
  number.point -= static_cast<int>(std::min<std::size_t>(leading, exponent_limit));
  number.digits.erase(number.digits.find_last_not_of('0') + 1);
  return number;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Reads a numeric text from left to right; every member consumes what it accepts.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  std::optional<DecimalDigits> number() {
    skipBlanks();
    DecimalDigits number;
    number.negative = peek() == '-';
    if (peek() == '-' || peek() == '+') advance();
    integerPart(number.digits);
    number.point = static_cast<int>(std::min<std::size_t>(number.digits.size(), exponent_limit));
    if (peek() == en_us::decimal_point) fractionPart(number.digits);
    if (number.digits.empty()) return std::nullopt;
    if (!exponentPart(number.point)) return std::nullopt;
    skipBlanks();
    if (!rest_.empty()) return std::nullopt;
    return normalised(std::move(number));
  }

 private:
  [[nodiscard]] char peek() const { return rest_.empty() ? '\0' : rest_.front(); }
  void advance() { rest_.remove_prefix(1); }

  void skipBlanks() {
    while (peek() == ' ' || peek() == '\t') advance();
  }

  void integerPart(std::string& digits) {
    for (; isDigit(peek()) || (peek() == en_us::thousands_separator && !rest_.empty()); advance()) {
      if (isDigit(peek())) digits += peek();
    }
  }

  void fractionPart(std::string& digits) {
    for (advance(); isDigit(peek()); advance()) digits += peek();
  }

  bool exponentPart(int& point) {
    if (peek() != 'e' && peek() != 'E') return true;
    advance();
    const bool negative = peek() == '-';
    if (peek() == '-' || peek() == '+') advance();
    if (!isDigit(peek())) return false;
    int exponent = 0;
    for (; isDigit(peek()); advance()) {
      exponent = std::min(exponent * 10 + (peek() - '0'), exponent_limit);
    }
    point += negative ? -exponent : exponent;
    return true;
  }

  std::string_view rest_;
};

/// Adds one unit in the last place; a carry out of the first digit moves the point.
void increment(DecimalDigits& number) {
  auto digit = number.digits.rbegin();
  for (; digit != number.digits.rend() && *digit == '9'; ++digit) *digit = '0';
  if (digit != number.digits.rend()) {
    ++*digit;
    return;
  }
  number.digits.insert(number.digits.begin(), '1');
  ++number.point;
}

/// Whether what follows the first `kept` digits rounds them up, halves to even.
bool roundsUp(const std::string& digits, std::size_t kept) {
  const char next = digits[kept];
  if (next != '5') return next > '5';
  // Trailing zeros are never kept, so any further digit makes it more than half.
  if (digits.size() > kept + 1) return true;
  return kept > 0 && (digits[kept - 1] - '0') % 2 == 1;
}

}  // namespace

DecimalDigits DecimalDigits::of(double value) {
  if (!std::isfinite(value)) throw RuntimeError::overflow();
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.begin(), buffer.end(), std::fabs(value),
                                 std::chars_format::scientific, 14)
                       .ptr;
  // d.dddddddddddddde±xx
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  DecimalDigits number;
  number.negative = std::signbit(value);
  number.digits.append(text.substr(0, 1)).append(text.substr(2, 14));
  const bool negative_exponent = text[17] == '-';
  int exponent = 0;
  std::from_chars(text.data() + 18, text.data() + text.size(), exponent);
  number.point = (negative_exponent ? -exponent : exponent) + 1;
  return normalised(std::move(number));
}

std::optional<DecimalDigits> DecimalDigits::ofText(std::string_view text) {
  return Scanner(text).number();
}

DecimalDigits DecimalDigits::roundedHalfEven(int places) const {
  const auto size = static_cast<std::int64_t>(digits.size());
  const std::int64_t keep = std::int64_t{point} + places;
  if (keep >= size) return digits.empty() ? DecimalDigits{} : *this;
  if (keep < 0) return {};
  DecimalDigits rounded{negative, digits.substr(0, static_cast<std::size_t>(keep)), point};
  if (roundsUp(digits, static_cast<std::size_t>(keep))) increment(rounded);
  rounded = normalised(std::move(rounded));
  if (rounded.digits.empty()) rounded = {};
  return rounded;
}

}  // namespace depcalc
