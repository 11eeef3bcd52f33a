// The text of a number, read once for all that is asked of it.
#pragma once

#include <optional>
#include <string_view>

#include "values/currency.h"
#include "values/plain_decimal.h"
#include "values/runtime_error.h"

namespace depcalc {

/// What `tryNumberFromText`, `Currency::fromText` and `moneyAsShown` say of a text; these ask here.
/// The text must outlive it.
class WrittenNumber {
 public:
  explicit WrittenNumber(std::string_view text) : text_(text), plain_(plainDecimal(text)) {}

  [[nodiscard]] bool isEmpty() const { return text_.empty(); }

  /// The number that the text says, correctly rounded; nothing when it is not numeric.
  [[nodiscard]] std::optional<double> tryValue() const {
    return plain_ ? plainValue() : longValue();
  }
  [[nodiscard]] bool isNumeric() const { return plain_ || longValue().has_value(); }
  /// Not numeric: error 13.
  [[nodiscard]] double value() const { return plain_ ? plainValue() : requiredLongValue(); }

  /// The amount exactly as written, halves to even at the fourth decimal. Not numeric: error 13.
  /// Out of range: error 6.
  [[nodiscard]] Currency exact() const {
    if (!plain_ || plain_.decimals > 4) return longAmount();
    std::int64_t ticks = 0;
    if (__builtin_mul_overflow(plain_.mantissa, powerOfTen(4 - plain_.decimals), &ticks)) {
      throw RuntimeError::overflow();
    }
    return Currency::fromTicks(ticks);
  }

  /// The amount that a field shows: in cents, of the number's 15 significant digits.
  [[nodiscard]] Currency asShown() const {
    return plain_ && plain_.decimals <= 2 ? exact() : longAsShown();
  }

 private:
  [[nodiscard]] double plainValue() const {
    return static_cast<double>(plain_.mantissa) / static_cast<double>(powerOfTen(plain_.decimals));
  }
  [[nodiscard]] std::optional<double> longValue() const;
  [[nodiscard]] double requiredLongValue() const;
  [[nodiscard]] Currency longAmount() const;
  [[nodiscard]] Currency longAsShown() const;

  std::string_view text_;
  PlainDecimal plain_;
};

}  // namespace depcalc
