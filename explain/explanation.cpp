#include "explain/explanation.h"

#include <algorithm>

#include "engine/asset_fiscal_years.h"
#include "engine/disposal.h"
#include "engine/double_declining_balance.h"
#include "engine/first_fiscal_year.h"
#include "engine/first_year_fraction.h"
#include "engine/method.h"
#include "engine/schedule_span.h"
#include "engine/straight_line.h"
#include "engine/sum_of_years_digits.h"
#include "engine/units_of_production.h"
#include "explain/step_choice.h"
#include "explain/step_words.h"
#include "explain/tracer.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

constexpr int last_year_of_calendar = 9999;
/// No schedule runs longer than the calendar.
constexpr double longest_life = last_year_of_calendar;

std::string_view codeOf(std::string_view method) {
  if (countsAsUnitsOfProduction(method)) return method_units_of_production;
  for (const Method& known : methods) {
    if (method == known.code) return known.code;
  }
  return {};
}

/// The fiscal year of the disposal; none of an asset that did not leave service.
std::optional<int> disposalYear(const ExplainedAsset& asset) {
  if (asset.disposed.isNone() || asset.disposed < asset.placed_in_service) return std::nullopt;
  return AssetFiscalYears(asset.placed_in_service, asset.fiscal_year_end).of(asset.disposed);
}

ExplainedStep worded(const ToldStep& told, const Telling& telling) {
  const bool number_alone = told.formula.shown.binding == Binding::atom;
  return {.words = wordsOf(told, telling),
          .expression = told.formula.exact.text,
          .result = told.result,
          .shown_expression = number_alone ? std::string() : told.formula.shown.text,
          .shown_result = told.shown_result};
}

ExplainedStep reason(std::string words) {
  return {.words = std::move(words),
          .expression = "0",
          .result = "0",
          .shown_expression = {},
          .shown_result = "0.00"};
}

/// Explains a method by what its rules told.
class Explainer {
 public:
  Explainer(const ExplainedAsset& asset, std::string_view method)
      : asset_(asset),
        method_(method),
        disposal_year_(disposalYear(asset)),
        first_year_(firstFiscalYear(asset.placed_in_service, asset.fiscal_year_end)) {}

  std::vector<Explanation> schedule() {
    std::vector<Currency> amounts = calculate();
    endAtDisposal(amounts);
    std::vector<Explanation> all;
    for (std::int32_t i = 0; i < yearsExplained(amounts); ++i) all.push_back(year(i));
    return all;
  }

  std::vector<Explanation> units() {
    const TracedMoney rate =
        unitsOfProduction(asset_.basis, asset_.salvage, asset_.capacity, tracer_);
    std::vector<Explanation> all{perUnit(rate.value())};
    const TracedMoney base =
        tracer_.tell(RuleStep::base, TracedMoney(asset_.basis) - TracedMoney(asset_.salvage));
    const int last =
        std::min(disposal_year_.value_or(last_year_of_calendar), last_year_of_calendar);
    for (const auto& [number, amount] :
         amountsOfUnits(asset_.units, rate, base, first_year_, last, tracer_)) {
      all.push_back(year(number));
    }
    return all;
  }

  /// A year in which nothing is taken, and why.
  Explanation nothingIn(int fiscal_year, const std::vector<Explanation>& all) {
    Explanation none = ofYear(fiscal_year);
    none.taken = {};
    for (const Explanation& other : all) {
      if (other.fiscal_year && *other.fiscal_year < fiscal_year) none.taken = other.taken;
    }
    none.steps.push_back(reason(whyNothing(fiscal_year)));
    return none;
  }

 private:
  std::vector<Currency> calculate() {
    if (!(asset_.life <= longest_life)) throw RuntimeError::overflow();
    const auto first_year = firstFiscalYearOf(asset_.convention, asset_.placed_in_service,
                                              asset_.fiscal_year_end, tracer_);
    const ScheduleInput input{.basis = asset_.basis,
                              .salvage = asset_.salvage,
                              .life = asset_.life,
                              .convention = asset_.convention,
                              .first_year_fraction = first_year.fraction.value()};
    std::vector<Currency> amounts(amountCount(asset_.life));
    const Amounts storage(amounts);
    if (method_ == method_straight_line) straightLine(input, storage, tracer_);
    if (method_ == method_sum_of_years_digits) sumOfYearsDigits(input, storage, tracer_);
    if (method_ == method_double_declining_balance) {
      doubleDecliningBalance(input, storage, tracer_);
    }
    return amounts;
  }

  /// A convention that is none of the five counts days.
  [[nodiscard]] std::int32_t conventionOfDisposal() const {
    const bool known = asset_.convention >= 0 && asset_.convention <= cdepActualDays;
    return known ? asset_.convention : static_cast<std::int32_t>(cdepActualDays);
  }

  void endAtDisposal(std::vector<Currency>& amounts) {
    if (!disposal_year_) return;
    const std::int32_t index = *disposal_year_ - first_year_;
    if (static_cast<std::size_t>(index) >= amounts.size()) return;
    amounts.resize(static_cast<std::size_t>(index) + 1);
    const auto whole = tracer_.amountOf(index);
    if (!whole) return;
    tracer_.beginYear(index);
    const TracedMoney until = amountUntilDisposal({.placed_in_service = asset_.placed_in_service,
                                                   .fiscal_year_end = asset_.fiscal_year_end,
                                                   .disposed = asset_.disposed,
                                                   .life = asset_.life,
                                                   .convention = conventionOfDisposal()},
                                                  tracer_.moneyOf(*whole), tracer_);
    tracer_.take(amounts.back(), RuleStep::taken_until_disposal, until);
  }

  /// Those of the schedule, and any behind it that took something.
  [[nodiscard]] std::int32_t yearsExplained(const std::vector<Currency>& amounts) const {
    const double spanned =
        nearestEven(fiscalYearsSpanned(asset_.life, asset_.convention == cdepfullyear));
    const auto most = static_cast<std::int32_t>(amounts.size());
    std::int32_t years = std::min(toLong32HalfEven(std::max(spanned, 0.0)), most);
    for (std::int32_t i = years; i < most; ++i) {
      if (amounts[static_cast<std::size_t>(i)] != Currency()) years = i + 1;
    }
    return std::min(years, last_year_of_calendar - first_year_ + 1);
  }

  Explanation ofYear(std::optional<int> fiscal_year) {
    return {.method = method_,
            .fiscal_year = fiscal_year,
            .amount = {},
            .steps = {},
            .taken = taken_,
            .base = asset_.basis - asset_.salvage,
            .saved = {}};
  }

  Explanation perUnit(Currency rate) {
    Explanation explanation = ofYear(std::nullopt);
    explanation.amount = rate;
    for (const ToldStep& told : tracer_.steps()) {
      explanation.steps.push_back(worded(told, telling(0)));
    }
    return explanation;
  }

  /// `index` counts the years of a schedule from 0; those of units have their numbers.
  Explanation year(std::int32_t index) {
    const int number = isUnitsOfProduction(method_) ? index : first_year_ + index;
    const auto amount = tracer_.amountOf(index);
    Explanation explanation = ofYear(number);
    if (!amount) {
      explanation.steps.push_back(reason(whyNothing(number)));
      return explanation;
    }
    explanation.amount = tracer_.steps()[*amount].money;
    explanation.taken = taken_ += explanation.amount;
    for (const std::size_t step : stepsOfYear(tracer_.steps(), *amount)) {
      explanation.steps.push_back(worded(tracer_.steps()[step], telling(index)));
    }
    return explanation;
  }

  [[nodiscard]] Telling telling(std::int32_t index) const {
    return {.asset = asset_, .method = method_, .first_year = first_year_, .index = index};
  }

  [[nodiscard]] std::string whyNothing(int fiscal_year) const {
    if (fiscal_year < first_year_) {
      return "Not yet in service: placed in service " + asset_.placed_in_service.toText() +
             ", in FY" + std::to_string(first_year_);
    }
    if (disposal_year_ && fiscal_year > *disposal_year_) {
      return "Disposed of " + asset_.disposed.toText() + ", in FY" +
             std::to_string(*disposal_year_) + ": nothing is taken afterwards";
    }
    if (isUnitsOfProduction(method_)) return "No units were entered for this fiscal year";
    return whyNothingInSchedule(fiscal_year - first_year_);
  }

  [[nodiscard]] std::string whyNothingInSchedule(std::int32_t index) const {
    std::int32_t last = std::min(index, toLong32HalfEven(asset_.life + 1.0)) - 1;
    while (last >= 0 && !tracer_.amountOf(last)) --last;
    const std::string year = "FY" + std::to_string(first_year_ + last);
    if (method_ == method_double_declining_balance && index <= asset_.life) {
      return "Down to salvage value in " + year + ": nothing is left to take";
    }
    return "The useful life of " + yearsText(asset_.life) + " ended in " + year +
           ": nothing is taken afterwards";
  }

  const ExplainedAsset& asset_;
  std::string_view method_;
  std::optional<int> disposal_year_;
  int first_year_;
  Tracer tracer_;
  Currency taken_;
};

std::vector<Explanation> explainedBy(Explainer& explainer, std::string_view code) {
  return isUnitsOfProduction(code) ? explainer.units() : explainer.schedule();
}

}  // namespace

ExplainedAsset explainedAsset(const CalculateDep& record) {
  return {.placed_in_service = record.AssetStartDate(),
          .fiscal_year_end = record.FYEnd(),
          .basis = record.AssetBasis(),
          .salvage = record.AssetSalvage(),
          .life = record.DepRecovery(),
          .convention = toLong32HalfEven(numberFromText(record.DepConvention())),
          .capacity = numberFromText(record.AssetProdCap()),
          .disposed = {},
          .units = {}};
}

std::vector<Explanation> explain(const ExplainedAsset& asset, std::string_view method) {
  const std::string_view code = codeOf(method);
  if (code.empty()) return {};
  Explainer explainer(asset, code);
  return explainedBy(explainer, code);
}

Explanation explainYear(const ExplainedAsset& asset, std::string_view method, int fiscal_year) {
  const std::string_view code = codeOf(method);
  Explainer explainer(asset, code);
  std::vector<Explanation> all = explainedBy(explainer, code);
  for (Explanation& one : all) {
    if (one.fiscal_year == fiscal_year) return Explanation(std::move(one));
  }
  return explainer.nothingIn(fiscal_year, all);
}

std::string titleOf(const Explanation& explanation) {
  std::string title;
  for (const Method& method : methods) {
    if (method.code == explanation.method) title = method.name;
  }
  return title + (explanation.fiscal_year ? ", FY" + std::to_string(*explanation.fiscal_year)
                                          : ", rate per unit");
}

}  // namespace depcalc
