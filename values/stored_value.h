// The typed values that a company file keeps.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "values/currency.h"
#include "values/date.h"

namespace depcalc {

/// A value that carries its own type: Empty, Integer (16-bit), Double, Currency, Date or String.
///
/// Reading converts: Empty is "" as a text, 0 as a number, and no date as a date. A String that is
/// not numeric (the empty one included) read as a number or a Currency, or that is no date read as
/// one, is error 13. A number out of the asked type's range is error 6, of a date's error 5.
class StoredValue {
 public:
  enum class Type { empty, integer, real, currency, date, text };

  StoredValue() = default;  ///< Empty
  static StoredValue integer(std::int16_t value) { return StoredValue(value); }
  static StoredValue real(double value) { return StoredValue(value); }
  static StoredValue currency(Currency value) { return StoredValue(value); }
  static StoredValue date(Date value) { return StoredValue(value); }
  static StoredValue text(std::string value) { return StoredValue(std::move(value)); }

  [[nodiscard]] Type type() const { return static_cast<Type>(content_.index()); }
  /// "Empty", "Integer", "Double", "Currency", "Date", "String".
  [[nodiscard]] std::string_view typeName() const;

  [[nodiscard]] std::string asText() const&;
  [[nodiscard]] std::string asText() &&;
  [[nodiscard]] double asDouble() const;
  [[nodiscard]] std::int32_t asLong() const;
  [[nodiscard]] Currency asCurrency() const;
  /// `today` supplies the year of a text that has none.
  [[nodiscard]] Date asDate(Date today) const;

  /// The content itself, for a caller that has looked at `type()`.
  template <typename T>
  [[nodiscard]] const T& get() const {
    return std::get<T>(content_);
  }

  friend bool operator==(const StoredValue&, const StoredValue&) = default;

 private:
  // Nobody but the makers above sees it.
  template <typename T>  // NOLINTNEXTLINE(bugprone-forwarding-reference-overload)
  explicit StoredValue(T&& value) : content_(std::forward<T>(value)) {}

  std::variant<std::monostate, std::int16_t, double, Currency, Date, std::string> content_;
};

}  // namespace depcalc
