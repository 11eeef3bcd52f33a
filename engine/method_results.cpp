#include "engine/method_results.h"

#include <cstdint>
#include <string>

#include "engine/schedule_span.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

void writeSchedule(CalculateDep& asset, std::string_view method,
                   const std::vector<Currency>& amounts) {
  const std::int16_t last = lastFiscalYearSpanned(asset);
  asset.DepMethod(std::string(method));
  for (std::int16_t i = 0; i <= last; ++i) {
    if (static_cast<std::size_t>(i) >= amounts.size()) throw RuntimeError::subscriptOutOfRange();
    asset.DepItem(i, amounts[static_cast<std::size_t>(i)]);
  }
}

}  // namespace

void calculateAllMethods(CalculateDep& asset, MethodResults& results) {
  asset.StraightLine(results.straight_line);
  asset.SumofYearsDigits(results.sum_of_years_digits);
  asset.DoubleDecliningBalance(results.double_declining_balance);
  results.rate = asset.UnitsofProduction();
}

void chooseMethod(CalculateDep& asset, std::string_view method, const MethodResults& results) {
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    if (method == scheduled.method.code) writeSchedule(asset, method, results.*scheduled.amounts);
  }
  if (!isUnitsOfProduction(method)) return;
  asset.DepMethod(std::string(method));
  asset.DepItem(0, results.rate);
}

void calculateChosen(CalculateDep& asset) {
  if (asset.DepMethod().empty()) return;
  MethodResults results;
  calculateAllMethods(asset, results);
  chooseMethod(asset, std::string(asset.DepMethod()), results);
}

}  // namespace depcalc
