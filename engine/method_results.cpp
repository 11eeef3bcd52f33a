#include "engine/method_results.h"

#include <cstdint>
#include <string>

#include "engine/convention.h"
#include "values/number_text.h"
#include "values/rounding.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

void writeSchedule(CalculateDep& asset, std::string_view method,
                   const std::vector<Currency>& amounts) {
  const std::int16_t last = toInteger16HalfEven(asset.DepRecovery() - (isFullYear(asset) ? 1 : 0));
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

bool isFullYear(const CalculateDep& asset) {
  return toLong32HalfEven(numberFromText(asset.DepConvention())) == cdepfullyear;
}

void chooseMethod(CalculateDep& asset, std::string_view method, const MethodResults& results) {
  if (method == "DDB") writeSchedule(asset, method, results.double_declining_balance);
  if (method == "SL") writeSchedule(asset, method, results.straight_line);
  if (method == "SYD") writeSchedule(asset, method, results.sum_of_years_digits);
  if (method != "UOP") return;
  asset.DepMethod("UOP");
  asset.DepItem(0, results.rate);
}

void calculateChosen(CalculateDep& asset) {
  if (asset.DepMethod().empty()) return;
  MethodResults results;
  calculateAllMethods(asset, results);
  chooseMethod(asset, std::string(asset.DepMethod()), results);
}

}  // namespace depcalc
