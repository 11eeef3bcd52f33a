#include "values/stored_value.h"

#include <array>
#include <cmath>
#include <utility>

#include "values/number_text.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
// clang 14 does not deduce aggregates by itself.
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

Date dateOfNumber(double days) {
  // The fraction is the time of day, before day 0 too, and dropped; what cannot be a day number at
  // all is out of range.
  const double whole = std::trunc(days);
  if (!(std::fabs(whole) < 1e9)) throw RuntimeError::invalidCall();
  return Date::fromDayNumber(static_cast<std::int64_t>(whole));
}

}  // namespace

std::string_view StoredValue::typeName() const {
  static constexpr std::array<std::string_view, 6> names{"Empty",    "Integer", "Double",
                                                         "Currency", "Date",    "String"};
  return names[content_.index()];
}

std::string StoredValue::asText() && {
  auto* const text = std::get_if<std::string>(&content_);
  return text != nullptr ? std::move(*text) : std::as_const(*this).asText();
}

std::string StoredValue::asText() const& {
  return std::visit(Overloaded{[](std::monostate) { return std::string(); },
                               [](std::int16_t value) { return std::to_string(value); },
                               [](double value) { return numberToText(value); },
                               [](Currency value) { return value.toText(); },
                               [](Date value) { return value.toText(); },
                               [](const std::string& value) { return value; }},
                    content_);
}

double StoredValue::asDouble() const {
  return std::visit(Overloaded{[](std::monostate) { return 0.0; },
                               [](std::int16_t value) { return static_cast<double>(value); },
                               [](double value) { return value; },
                               [](Currency value) { return value.toDouble(); },
                               [](Date value) { return static_cast<double>(value.dayNumber()); },
                               [](const std::string& value) { return numberFromText(value); }},
                    content_);
}

std::int32_t StoredValue::asLong() const { return toLong32HalfEven(asDouble()); }

Currency StoredValue::asCurrency() const {
  if (const auto* money = std::get_if<Currency>(&content_)) return *money;
  if (const auto* text = std::get_if<std::string>(&content_)) return Currency::fromText(*text);
  return Currency::fromDouble(asDouble());
}

Date StoredValue::asDate(Date today) const {
  if (const auto* date = std::get_if<Date>(&content_)) return *date;
  if (const auto* text = std::get_if<std::string>(&content_)) return Date::fromText(*text, today);
  return dateOfNumber(asDouble());
}

}  // namespace depcalc
