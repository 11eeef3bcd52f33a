// The fiscal year in which an asset is placed in service. A fiscal year is named by the calendar
// year in which it ends, as usual in the United States.
#pragma once

#include "engine/told_steps.h"
#include "values/calendar.h"
#include "values/date.h"

namespace depcalc {

/// The last day of the fiscal year that `placed_in_service` falls in. Of `fiscal_year_end` only
/// month and day count. A start on the last day itself belongs to the year ending that day. A
/// fiscal year is named by the year of this date.
///
/// The day is looked up in the calendar year of the start, where 29 February of a common year is
/// 1 March; one before the start moves on a year, where 29 February becomes 28 February.
Date firstFiscalYearEnd(Date placed_in_service, Date fiscal_year_end);

/// The same for who listens.
template <Listener L>
Date firstFiscalYearEnd(Date placed_in_service, Date fiscal_year_end, L& listener) {
  using Number = typename L::Number;
  const auto year_end = fiscal_year_end.parts();
  const int year = placed_in_service.year();
  const Date this_year = Calendar::carrying(year, year_end.month, year_end.day);
  const bool over = this_year < placed_in_service;
  const Date end = over ? Calendar::monthsLater(this_year, 12) : this_year;
  listener.tell(RuleStep::first_fiscal_year, over ? Number(year) + 1.0 : Number(year),
                {.from = placed_in_service, .to = end});
  return end;
}

/// The year of that date, which names the fiscal year, for any dates. This rule always comes to a
/// year: what is calculated, kept and summed up goes by it.
int firstFiscalYear(Date placed_in_service, Date fiscal_year_end);

/// The same by a stricter rule: a last day that the start's calendar year does not have (29
/// February) is error 13. The screens line amounts up by it and stop at such an asset, which is
/// how they are defined; no other day makes a difference.
int firstFiscalYearStrict(Date placed_in_service, Date fiscal_year_end);

/// The day after the same date one year earlier.
inline Date firstFiscalYearStart(Date first_fiscal_year_end) {
  const auto [year, month, day] = first_fiscal_year_end.parts();
  return Calendar::carrying(year - 1, month, day + 1);
}

}  // namespace depcalc
