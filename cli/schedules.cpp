#include "cli/schedules.h"

#include "engine/first_fiscal_year.h"
#include "engine/schedule_span.h"

namespace depcalc {
namespace {

/// Cuts a schedule, which has room for one or two years more, to the years shown.
void show(std::vector<Currency>& amounts, std::size_t years) {
  if (!amounts.empty()) amounts.resize(years);
}

}  // namespace

void calculateSchedules(MethodBatch& batch, std::size_t index, CalculateDep& asset,
                        Schedules& schedules) {
  schedules.first_fiscal_year = firstFiscalYearEnd(asset.AssetStartDate(), asset.FYEnd()).year();
  schedules.years = static_cast<std::size_t>(fiscalYearsSpanned(asset));
  batch.giveAllMethods(index, schedules);
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    show(schedules.*scheduled.amounts, schedules.years);
  }
}

}  // namespace depcalc
