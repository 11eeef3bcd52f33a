// Prorating the first fiscal year by convention: the averaging conventions of the field, by which
// assets count as placed in service at a set point of the year or month. Half Year is also that of
// the United States' tax rules (Internal Revenue Code, section 168(d)(4)(A)); Full Month and Half
// Month are the full-month and the modified half-month convention.
#pragma once

#include <cstdint>

#include "engine/convention.h"
#include "engine/first_fiscal_year.h"
#include "engine/told_steps.h"
#include "values/calendar.h"
#include "values/date.h"
#include "values/rounding.h"

namespace depcalc {

/// The day from which the first year's share is counted.
inline Date depreciationStart(std::int32_t convention, Date placed_in_service,
                              Date first_year_start, Date first_year_end) {
  switch (convention) {
    case cdepfullyear:
      return first_year_start;
    case cdepHalfYear: {
      const double half = monthsBetween(first_year_start, first_year_end) / 2.0;
      return Calendar::monthsLater(first_year_start, static_cast<int>(nearestEven(half)));
    }
    case cdepFullMonth:
      return Calendar::firstOfMonth(placed_in_service);
    case cdepHalfMonth: {
      const Date first = Calendar::firstOfMonth(placed_in_service);
      return placed_in_service.day() < 16 ? first : Calendar::monthsLater(first, 1);
    }
    default:
      return placed_in_service;
  }
}

/// The share of a year's depreciation that the first fiscal year takes, at most 1: 1 for Full Year
/// and 0.5 for Half Year; whole months over 12 for Full Month and Half Month; days in service over
/// 365, or 366 in a fiscal year with a 29 February, for Actual Days; 0 for any other number. A
/// half-month start after the 15th in the last month of the fiscal year takes nothing.
///
/// A month counts as 30 days, as in a commercial year, and the count is rounded, halves to even.
/// From the first day of a month to the last day of a later one the days, counted without the last
/// one, are nearest to 30 times the calendar months between them, for up to a year; so the rounding
/// always finds these.
double firstYearFraction(std::int32_t convention, Date depreciation_start, Date first_year_end);

/// The days that Actual Days counts a fiscal year as: 366 where the one that ends on `year_end`
/// contains a 29 February, else 365.
inline double daysCounted(Date year_end) {
  const bool ends_by_february_28 =
      year_end.month() < 2 || (year_end.month() == 2 && year_end.day() <= 28);
  const int year_of_february = ends_by_february_28 ? year_end.year() - 1 : year_end.year();
  return Calendar::hasLeapDay(year_of_february) ? 366.0 : 365.0;
}

/// The first fiscal year of an asset, and the share of a year's depreciation that it takes.
template <typename Number>
struct FirstFiscalYearIn {
  Date start;
  Date end;
  Date depreciation_start;
  Number fraction = 0.0;
};
using FirstFiscalYear = FirstFiscalYearIn<double>;

/// All of the above, from what is known of an asset. A day outside the calendar is error 5.
FirstFiscalYear firstFiscalYearOf(std::int32_t convention, Date placed_in_service,
                                  Date fiscal_year_end);

// The same for who listens.

template <Listener L>
typename L::Number wholeMonths(Date from, Date to, L& listener) {
  using Number = typename L::Number;
  const Number months = listener.tell(
      RuleStep::months_counted, Number(daysBetween(from, to)) / 30.0, {.from = from, .to = to});
  return listener.tell(RuleStep::whole_months, nearestEven(months));
}

/// `firstYearFraction` before it is limited to 1.
template <Listener L>
typename L::Number unlimitedFraction(std::int32_t convention, Date start, Date year_end,
                                     L& listener) {
  using Number = typename L::Number;
  switch (convention) {
    case cdepfullyear:
      return 1.0;
    case cdepHalfYear:
      return 0.5;
    case cdepFullMonth:
    case cdepHalfMonth:
      return wholeMonths(start, year_end, listener) / 12.0;
    case cdepActualDays: {
      const Number days =
          listener.tell(RuleStep::days_in_service, Number(daysBetween(start, year_end)) + 1.0,
                        {.from = start, .to = year_end});
      return days / listener.tell(RuleStep::days_of_fiscal_year, Number(daysCounted(year_end)),
                                  {.to = year_end});
    }
    default:
      return 0.0;
  }
}

template <Listener L>
typename L::Number firstYearFraction(std::int32_t convention, Date depreciation_start,
                                     Date first_year_end, L& listener) {
  using Number = typename L::Number;
  const Number share =
      listener.tell(RuleStep::first_share,
                    unlimitedFraction(convention, depreciation_start, first_year_end, listener),
                    {.number = convention, .from = depreciation_start, .to = first_year_end});
  return listener.atMost(RuleStep::whole_year_at_most, share, Number(1.0));
}

/// Compiled in place, so that only those dates are worked out that the caller looks at.
template <Listener L>
[[gnu::always_inline]] inline FirstFiscalYearIn<typename L::Number> firstFiscalYearOf(
    std::int32_t convention, Date placed_in_service, Date fiscal_year_end, L& listener) {
  FirstFiscalYearIn<typename L::Number> year;
  year.end = firstFiscalYearEnd(placed_in_service, fiscal_year_end, listener);
  year.start = firstFiscalYearStart(year.end);
  year.depreciation_start = depreciationStart(convention, placed_in_service, year.start, year.end);
  year.fraction = firstYearFraction(convention, year.depreciation_start, year.end, listener);
  return year;
}

}  // namespace depcalc
