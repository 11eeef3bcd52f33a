// Numbers and money that remember how they were made.
#pragma once

#include <compare>
#include <string>
#include <vector>

#include "values/currency.h"

namespace depcalc {

/// How tightly a text holds together: what it needs parentheses beside.
enum class Binding { sum, product, atom };

/// A number, or an expression of numbers in the order in which it was calculated, written twice.
struct Formula {
  struct Text {
    std::string text;
    Binding binding = Binding::atom;
  };
  Text exact;                ///< for programs: reads back as exactly the same numbers
  Text shown;                ///< for people: 38,450.00 − 4,000.00
  bool below_zero = false;   ///< a number alone, written without its minus sign
  std::vector<int> sources;  ///< the steps whose results stand in it

  static Formula ofNumber(double value);
  static Formula ofMoney(Currency value);
  /// A number that counts money: 4,921.428571… is shown with two decimals at least.
  static Formula ofMoneyNumber(double value);

  /// The texts with their sign.
  [[nodiscard]] Formula signedTexts() const;
};

Formula combined(const Formula& left, char sign, const Formula& right);
/// `name`(`argument`); people see the argument alone.
Formula called(const char* name, const Formula& argument);

/// Stands for double.
class TracedNumber {
 public:
  TracedNumber(double value) : TracedNumber(value, Formula::ofNumber(value)) {}
  TracedNumber(double value, Formula formula) : value_(value), formula_(std::move(formula)) {}

  [[nodiscard]] double value() const { return value_; }
  [[nodiscard]] const Formula& formula() const { return formula_; }

  friend TracedNumber operator+(const TracedNumber& a, const TracedNumber& b) {
    return {a.value_ + b.value_, combined(a.formula_, '+', b.formula_)};
  }
  friend TracedNumber operator-(const TracedNumber& a, const TracedNumber& b) {
    return {a.value_ - b.value_, combined(a.formula_, '-', b.formula_)};
  }
  friend TracedNumber operator*(const TracedNumber& a, const TracedNumber& b) {
    return {a.value_ * b.value_, combined(a.formula_, '*', b.formula_)};
  }
  friend TracedNumber operator/(const TracedNumber& a, const TracedNumber& b) {
    return {a.value_ / b.value_, combined(a.formula_, '/', b.formula_)};
  }
  friend auto operator<=>(const TracedNumber& a, const TracedNumber& b) {
    return a.value_ <=> b.value_;
  }

 private:
  double value_;
  Formula formula_;
};

/// The same as for doubles, errors included.
TracedNumber divide(const TracedNumber& dividend, const TracedNumber& divisor);
/// A whole number says nothing of what it was rounded from; one that was whole stays as it is.
TracedNumber nearestEven(const TracedNumber& number);
TracedNumber toInteger16HalfEven(const TracedNumber& number);

/// Stands for Currency. Sums are kept without the `currency()` that they are rounded by.
class TracedMoney {
 public:
  TracedMoney() : TracedMoney(Currency()) {}
  explicit TracedMoney(Currency value) : TracedMoney(value, Formula::ofMoney(value)) {}
  TracedMoney(Currency value, Formula formula) : value_(value), formula_(std::move(formula)) {}

  static TracedMoney fromDouble(const TracedNumber& number) {
    return {Currency::fromDouble(number.value()), called("currency", number.formula())};
  }
  static TracedMoney fromDoubleTo2HalfEven(const TracedNumber& number) {
    return {Currency::fromDoubleTo2HalfEven(number.value()), called("round2", number.formula())};
  }

  [[nodiscard]] Currency value() const { return value_; }
  [[nodiscard]] TracedNumber toDouble() const { return {value_.toDouble(), formula()}; }
  [[nodiscard]] TracedMoney times(const TracedNumber& factor) const {
    return fromDouble(toDouble() * factor);
  }
  /// With the rounding of a sum.
  [[nodiscard]] Formula formula() const {
    return formula_.exact.binding == Binding::sum ? called("currency", formula_) : formula_;
  }

  friend TracedMoney operator+(const TracedMoney& a, const TracedMoney& b) {
    return {a.value_ + b.value_, combined(a.formula_, '+', b.formula_)};
  }
  friend TracedMoney operator-(const TracedMoney& a, const TracedMoney& b) {
    return {a.value_ - b.value_, combined(a.formula_, '-', b.formula_)};
  }
  TracedMoney& operator-=(const TracedMoney& b) { return *this = *this - b; }
  friend auto operator<=>(const TracedMoney& a, const TracedMoney& b) {
    return a.value_ <=> b.value_;
  }
  friend bool operator==(const TracedMoney& a, const TracedMoney& b) {
    return a.value_ == b.value_;
  }

 private:
  Currency value_;
  Formula formula_;
};

}  // namespace depcalc
