#include "explain/traced.h"

#include <cmath>
#include <string_view>

#include "values/display_format.h"
#include "values/number_text.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

using Text = Formula::Text;

constexpr int shown_decimals = 6;

std::string positiveText(Currency value) {
  const std::string text = value.toText();
  return text.front() == '-' ? text.substr(1) : text;
}

std::string positiveShown(Currency value) {
  const std::string text = formatExactMoney(value);
  return text.front() == '-' ? text.substr(1) : text;
}

Formula ofDouble(double value, int least_decimals) {
  const double size = std::fabs(value);
  return {.exact = {plainNumberText(size)},
          .shown = {formatCutShort(size, least_decimals, shown_decimals)},
          .below_zero = value < 0.0,
          .sources = {}};
}

std::string within(const Text& text, bool parentheses) {
  return parentheses ? '(' + text.text + ')' : text.text;
}

/// What stands right of a sign of the same rank was calculated first, so it stays together.
Text combinedText(const Text& left, char sign, std::string_view written, const Text& right) {
  const Binding binding = sign == '+' || sign == '-' ? Binding::sum : Binding::product;
  std::string text = within(left, left.binding < binding);
  text.append(" ").append(written).append(" ");
  return {text + within(right, right.binding <= binding), binding};
}

/// The sign as people write it.
std::string_view shownSign(char sign) {
  switch (sign) {
    case '-':
      return "−";
    case '*':
      return "×";
    case '/':
      return "÷";
    default:
      return "+";
  }
}

/// To add a number below 0 is to take it away.
char signBefore(char sign, const Formula& right) {
  if (!right.below_zero || (sign != '+' && sign != '-')) return sign;
  return sign == '+' ? '-' : '+';
}

TracedNumber rounded(const TracedNumber& number, double whole) {
  if (whole == number.value()) return number;
  Formula formula = Formula::ofNumber(whole);
  formula.sources = number.formula().sources;
  return {whole, std::move(formula)};
}

}  // namespace

Formula Formula::ofNumber(double value) { return ofDouble(value, 0); }

Formula Formula::ofMoneyNumber(double value) { return ofDouble(value, 2); }

Formula Formula::ofMoney(Currency value) {
  return {.exact = {positiveText(value)},
          .shown = {positiveShown(value)},
          .below_zero = value < Currency(),
          .sources = {}};
}

Formula Formula::signedTexts() const {
  if (!below_zero) return *this;
  return {.exact = {"0 - " + exact.text, Binding::sum},
          .shown = {"−" + shown.text},
          .below_zero = false,
          .sources = sources};
}

Formula combined(const Formula& left, char sign, const Formula& right) {
  const Formula first = left.signedTexts();
  const char before = signBefore(sign, right);
  const Formula second = before == sign ? right.signedTexts() : right;
  std::vector<int> sources = left.sources;
  sources.insert(sources.end(), right.sources.begin(), right.sources.end());
  return {.exact = combinedText(first.exact, before, std::string_view(&before, 1), second.exact),
          .shown = combinedText(first.shown, before, shownSign(before), second.shown),
          .below_zero = false,
          .sources = std::move(sources)};
}

Formula called(const char* name, const Formula& argument) {
  Formula formula = argument.signedTexts();
  formula.exact = {name + ('(' + formula.exact.text + ')')};
  return formula;
}

TracedNumber divide(const TracedNumber& dividend, const TracedNumber& divisor) {
  return {divide(dividend.value(), divisor.value()),
          combined(dividend.formula(), '/', divisor.formula())};
}

TracedNumber nearestEven(const TracedNumber& number) {
  return rounded(number, nearestEven(number.value()));
}

TracedNumber toInteger16HalfEven(const TracedNumber& number) {
  return rounded(number, toInteger16HalfEven(number.value()));
}

}  // namespace depcalc
