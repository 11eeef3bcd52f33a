#include "cli/schedules.h"

#include "engine/first_fiscal_year.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

std::size_t yearsShown(const CalculateDep& asset) {
  const bool full_year = asset.DepConvention() == "0";
  return static_cast<std::size_t>(toInteger16HalfEven(asset.DepRecovery() + (full_year ? 0 : 1)));
}

/// Cuts a schedule, which has room for one or two years more, to the years shown.
void show(std::vector<Currency>& amounts, std::size_t years) {
  if (!amounts.empty()) amounts.resize(years);
}

}  // namespace

void calculateSchedules(CalculateDep& asset, Schedules& schedules) {
  schedules.first_fiscal_year = firstFiscalYearEnd(asset.AssetStartDate(), asset.FYEnd()).year();
  schedules.years = yearsShown(asset);
  asset.StraightLine(schedules.straight_line);
  asset.SumofYearsDigits(schedules.sum_of_years_digits);
  asset.DoubleDecliningBalance(schedules.double_declining_balance);
  schedules.rate = asset.UnitsofProduction();
  show(schedules.straight_line, schedules.years);
  show(schedules.sum_of_years_digits, schedules.years);
  show(schedules.double_declining_balance, schedules.years);
}

}  // namespace depcalc
