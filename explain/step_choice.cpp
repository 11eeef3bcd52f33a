#include "explain/step_choice.h"

#include <algorithm>

namespace depcalc {
namespace {

/// Running totals are for the years behind.
bool isOnlyForUse(const ToldStep& step) {
  return step.step == RuleStep::taken || step.step == RuleStep::book_value ||
         step.step == RuleStep::asset_year || step.step == RuleStep::share_left;
}

bool isAbout(const ToldStep& step, std::int32_t year) { return !step.year || *step.year == year; }

/// Where the days of the first fiscal year come from.
bool opensSchedule(const ToldStep& step, std::int32_t year) {
  return step.step == RuleStep::first_fiscal_year && year == 0;
}

}  // namespace

std::vector<std::size_t> stepsOfYear(const std::vector<ToldStep>& steps, std::size_t amount) {
  const std::int32_t year = *steps[amount].year;
  std::vector<bool> wanted(amount + 1, false);
  for (std::size_t i = amount + 1; i-- > 0;) {
    const ToldStep& step = steps[i];
    const bool of_this_year = step.year == year && !isOnlyForUse(step);
    if (of_this_year || opensSchedule(step, year)) wanted[i] = true;
    if (!wanted[i] || !isAbout(step, year)) continue;
    for (const int source : step.formula.sources) wanted[static_cast<std::size_t>(source)] = true;
  }
  std::vector<std::size_t> chosen;
  for (std::size_t i = 0; i <= amount; ++i) {
    if (wanted[i]) chosen.push_back(i);
  }
  // What all of it starts from goes first.
  std::stable_partition(chosen.begin(), chosen.end(),
                        [&](std::size_t i) { return steps[i].step == RuleStep::base; });
  return chosen;
}

}  // namespace depcalc
