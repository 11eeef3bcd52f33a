#include "explain/tracer.h"

#include <algorithm>

#include "values/number_text.h"

namespace depcalc {
namespace {

/// Numbers that count money before it is rounded to money.
bool countsMoney(RuleStep step) { return step == RuleStep::annual || step == RuleStep::asset_year; }

/// A number that was whole is not told to be rounded.
bool tellsRounding(RuleStep step) {
  return step == RuleStep::whole_months || step == RuleStep::whole_digits;
}

bool namesYear(RuleStep step) {
  return step == RuleStep::first_fiscal_year || step == RuleStep::year_of_disposal;
}

/// Steps that only say that what was told last is the amount.
bool addsNothing(RuleStep step) {
  return step == RuleStep::units_taken || step == RuleStep::taken_until_disposal;
}

void dropSeparators(std::string& text) { std::erase(text, ','); }

bool isTold(const Formula& formula, std::size_t step) {
  return formula.exact.binding == Binding::atom && formula.sources.size() == 1 &&
         formula.sources.front() == static_cast<int>(step) &&
         formula.exact.text.find('(') == std::string::npos;
}

}  // namespace

/// What all years have in common is told once.
std::optional<std::size_t> Tracer::toldInCommon(RuleStep step, const Formula& made) const {
  for (std::size_t i = 0; i < steps_.size() && !year_; ++i) {
    if (steps_[i].step == step && steps_[i].formula.exact.text == made.exact.text) return i;
  }
  return std::nullopt;
}

/// The result as a number that says which step it comes from.
Formula Tracer::add(RuleStep step, StepAbout about, const Formula& made, Formula result) {
  const Formula written = made.signedTexts();
  if (const auto before = toldInCommon(step, written)) {
    result.sources = {static_cast<int>(*before)};
    return result;
  }
  const Formula signed_result = result.signedTexts();
  ToldStep told{.step = step, .about = about, .year = year_, .formula = written};
  told.result = (result.below_zero ? "-" : "") + result.exact.text;
  told.shown_result = signed_result.shown.text;
  if (namesYear(step)) {
    dropSeparators(told.formula.shown.text);
    dropSeparators(told.shown_result);
  }
  result.sources = {static_cast<int>(steps_.size())};
  steps_.push_back(std::move(told));
  return result;
}

TracedNumber Tracer::tell(RuleStep step, const Number& value, StepAbout about) {
  if (tellsRounding(step) && !steps_.empty() && isTold(value.formula(), steps_.size() - 1) &&
      steps_.back().result == plainNumberText(value.value())) {
    return value;
  }
  Formula result =
      countsMoney(step) ? Formula::ofMoneyNumber(value.value()) : Formula::ofNumber(value.value());
  return {value.value(), add(step, about, value.formula(), std::move(result))};
}

TracedMoney Tracer::tell(RuleStep step, const Money& value, StepAbout about) {
  Formula result = add(step, about, value.formula(), Formula::ofMoney(value.value()));
  steps_[static_cast<std::size_t>(result.sources.front())].money = value.value();
  return {value.value(), std::move(result)};
}

TracedNumber Tracer::atMost(RuleStep step, const Number& value, const Number& most) {
  if (!(most < value)) return value;
  Number limited = tell(step, most);
  addSources(value.formula());
  return limited;
}

TracedMoney Tracer::atMost(RuleStep step, const Money& value, const Money& most) {
  if (!(most < value)) return value;
  Money limited = tell(step, most);
  addSources(value.formula());
  return limited;
}

/// What was too much belongs to the story of the limit.
void Tracer::addSources(const Formula& formula) {
  std::vector<int>& sources = steps_.back().formula.sources;
  sources.insert(sources.end(), formula.sources.begin(), formula.sources.end());
}

TracedNumber Tracer::recall(RuleStep step, double value) const {
  const std::string text = plainNumberText(value);
  for (std::size_t i = steps_.size(); i-- > 0;) {
    const bool same = steps_[i].step == step || steps_[i].step == RuleStep::whole_year_at_most;
    if (!same || steps_[i].result != text) continue;
    Formula formula = Formula::ofNumber(value);
    formula.sources = {static_cast<int>(i)};
    return {value, std::move(formula)};
  }
  return value;
}

TracedMoney Tracer::take(Currency& amount, RuleStep step, const Money& value) {
  amount = value.value();
  Money taken = addsNothing(step) && justTold(value) ? value : tell(step, value);
  steps_.back().is_amount = true;
  return taken;
}

bool Tracer::justTold(const Money& value) const {
  return !steps_.empty() && steps_.back().year == year_ &&
         isTold(value.formula(), steps_.size() - 1);
}

std::optional<std::size_t> Tracer::amountOf(std::int32_t index) const {
  for (std::size_t i = steps_.size(); i-- > 0;) {
    if (steps_[i].is_amount && steps_[i].year == index) return i;
  }
  return std::nullopt;
}

TracedMoney Tracer::moneyOf(std::size_t step) const {
  Formula formula = Formula::ofMoney(steps_[step].money);
  formula.sources = {static_cast<int>(step)};
  return {steps_[step].money, std::move(formula)};
}

}  // namespace depcalc
