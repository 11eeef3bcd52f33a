#include "desktop/workspace/why_this_amount.h"

#include <string_view>

#include "engine/method.h"
#include "reports/explaining/saved_explanation.h"
#include "values/display_format.h"

namespace depcalc::desktop {
namespace {

bool isSaved(InsightPlace place) {
  return place != InsightPlace::entry && place != InsightPlace::comparison;
}

/// Disposals and units count where reports are; the calculator's own pages leave them out.
AmountsShown amountsShown(InsightPlace place) {
  const bool reports = place == InsightPlace::report || place == InsightPlace::assets;
  return reports ? AmountsShown::in_reports : AmountsShown::in_register;
}

std::string_view methodName(std::string_view code) {
  for (const Method& method : methods) {
    if (method.code == code) return method.name;
  }
  return {};
}

std::string fiscalYear(const Explanation& explanation) {
  return explanation.fiscal_year ? "FY" + std::to_string(*explanation.fiscal_year)
                                 : std::string("Rate per unit");
}

WhyRow row(const ExplainedStep& step) {
  const bool alone = step.shown_expression.empty();
  return {step.words, alone ? step.shown_result : step.shown_expression + " = " + step.shown_result,
          false};
}

std::string savedWarning(const Explanation& explanation) {
  if (!explanation.saved) return {};
  return "Saved as " + formatExactMoney(*explanation.saved) +
         ", which is not what the calculation gives. Explained is the calculation.";
}

std::string ofAll(const Explanation& explanation) {
  return formatExactMoney(explanation.taken) + " of " + formatExactMoney(explanation.base);
}

WhyThisAmount ofAmount(const Explanation& explanation) {
  WhyThisAmount why{.heading = titleOf(explanation) + ": " + formatExactMoney(explanation.amount),
                    .warning = savedWarning(explanation),
                    .rows = {},
                    .note = {}};
  for (const ExplainedStep& step : explanation.steps) why.rows.push_back(row(step));
  why.rows.back().total = true;
  if (explanation.fiscal_year) why.rows.push_back({"Taken so far", ofAll(explanation), false});
  return why;
}

WhyThisAmount ofAllYears(const std::vector<Explanation>& all, std::string_view method) {
  WhyThisAmount why{.heading = std::string(methodName(method)),
                    .warning = {},
                    .rows = {},
                    .note = "Go to an amount to see how it comes about."};
  for (const Explanation& one : all) {
    why.rows.push_back({fiscalYear(one), formatExactMoney(one.amount), false});
    if (one.saved) {
      why.rows.back().figures += " (saved as " + formatExactMoney(*one.saved) + ')';
    }
  }
  if (!all.empty()) why.rows.push_back({"Taken in all", ofAll(all.back()), true});
  return why;
}

WhyThisAmount note(std::string text) {
  return {.heading = {}, .warning = {}, .rows = {}, .note = std::move(text)};
}

/// What is on the screens is no saved amount yet.
void forgetSaved(Explanation& explanation, InsightPlace place) {
  if (!isSaved(place)) explanation.saved.reset();
}

WhyThisAmount notCalculated(std::string_view method) {
  return note("The asset has no amounts by " + std::string(methodName(method)) +
              ": its dates, useful life or convention do not allow the calculation.");
}

WhyThisAmount ofYear(const ReportAsset& asset, const InsightSubject& subject,
                     std::string_view method) {
  auto one = explainSavedYear(asset, method, amountsShown(subject.place), *subject.fiscal_year);
  if (!one) return notCalculated(method);
  forgetSaved(*one, subject.place);
  return ofAmount(*one);
}

WhyThisAmount ofSchedule(const ReportAsset& asset, const InsightSubject& subject,
                         std::string_view method) {
  auto all = explainSaved(asset, method, amountsShown(subject.place));
  if (!all) return notCalculated(method);
  for (Explanation& one : *all) forgetSaved(one, subject.place);
  const bool rate_alone = all->size() == 1 && !all->front().fiscal_year;
  return rate_alone ? ofAmount(all->front()) : ofAllYears(*all, method);
}

std::string_view codeOf(const InsightSubject& subject) {
  if (countsAsUnitsOfProduction(subject.method)) return method_units_of_production;
  return methodName(subject.method).empty() ? std::string_view() : subject.method;
}

bool isIncomplete(const SavedAsset& asset) {
  return asset.placed_in_service.isNone() || asset.basis == Currency();
}

}  // namespace

WhyThisAmount whyThisAmount(const InsightSubject& subject) {
  if (subject.isNothing()) {
    return note(
        "Select an asset, or compare the methods for one, to see how its amounts come "
        "about.");
  }
  if (isIncomplete(subject.asset)) {
    return note(
        "Enter when the asset was placed in service, its useful life and its basis; then "
        "Calculate compares the methods.");
  }
  const std::string_view method = codeOf(subject);
  if (method.empty()) return note("No method is chosen yet. Calculate compares the methods.");
  const ReportAsset asset(subject.asset);
  // By units of production the calculator's own pages show the rate alone.
  const bool rate =
      isUnitsOfProduction(method) && amountsShown(subject.place) == AmountsShown::in_register;
  return subject.fiscal_year && !rate ? ofYear(asset, subject, method)
                                      : ofSchedule(asset, subject, method);
}

std::string plainText(const WhyThisAmount& why) {
  std::string text;
  const auto line = [&text](const std::string& content) {
    if (!content.empty()) text += content + '\n';
  };
  line(why.heading);
  line(why.warning);
  for (const WhyRow& row : why.rows) line(row.words + '\t' + row.figures);
  line(why.note);
  return text;
}

}  // namespace depcalc::desktop
