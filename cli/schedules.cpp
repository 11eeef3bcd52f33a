#include "cli/schedules.h"

#include <utility>

#include "engine/first_fiscal_year.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

std::size_t yearsShown(const CalculateDep& asset) {
  const bool full_year = asset.DepConvention() == "0";
  return static_cast<std::size_t>(toInteger16HalfEven(asset.DepRecovery() + (full_year ? 0 : 1)));
}

/// The years shown of a schedule, which has room for one or two more.
std::vector<Currency> shown(std::vector<Currency> amounts, std::size_t years) {
  if (!amounts.empty()) amounts.resize(years);
  return amounts;
}

}  // namespace

Schedules calculateSchedules(CalculateDep& asset) {
  Schedules schedules;
  schedules.first_fiscal_year = firstFiscalYearEnd(asset.AssetStartDate(), asset.FYEnd()).year();
  schedules.years = yearsShown(asset);
  schedules.straight_line = shown(asset.StraightLine(), schedules.years);
  schedules.sum_of_years_digits = shown(asset.SumofYearsDigits(), schedules.years);
  schedules.double_declining_balance = shown(asset.DoubleDecliningBalance(), schedules.years);
  schedules.rate = asset.UnitsofProduction();
  return schedules;
}

}  // namespace depcalc
