#include "engine/first_year_fraction.h"

#include <algorithm>

#include "engine/convention.h"
#include "engine/first_fiscal_year.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

Date firstOfMonth(Date::Parts date) { return Date::carrying(date.year, date.month, 1); }

Date firstOfNextMonth(Date::Parts date) { return Date::carrying(date.year, date.month + 1, 1); }

double wholeMonths(Date from, Date to) { return nearestEven(daysBetween(from, to) / 30.0); }

/// Whether the fiscal year that ends on `year_end` contains a 29 February.
bool containsLeapDay(Date year_end) {
  const int year = year_end.year();
  const bool ends_by_february_28 = Date::strict(year, 2, 28) >= year_end;
  return Date::exists(ends_by_february_28 ? year - 1 : year, 2, 29);
}

double unlimitedFraction(std::int32_t convention, Date start, Date year_end) {
  switch (convention) {
    case cdepfullyear:
      return 1.0;
    case cdepHalfYear:
      return 0.5;
    case cdepFullMonth:
    case cdepHalfMonth:
      return wholeMonths(start, year_end) / 12.0;
    case cdepActualDays:
      return (daysBetween(start, year_end) + 1) / daysCounted(year_end);
    default:
      return 0.0;
  }
}

}  // namespace

Date depreciationStart(std::int32_t convention, Date placed_in_service, Date first_year_start,
                       Date first_year_end) {
  switch (convention) {
    case cdepfullyear:
      return first_year_start;
    case cdepHalfYear:
      return first_year_start.plusMonths(monthsBetween(first_year_start, first_year_end) / 2.0);
    case cdepFullMonth:
      return firstOfMonth(placed_in_service.parts());
    case cdepHalfMonth: {
      const auto date = placed_in_service.parts();
      return date.day < 16 ? firstOfMonth(date) : firstOfNextMonth(date);
    }
    default:
      return placed_in_service;
  }
}

double firstYearFraction(std::int32_t convention, Date depreciation_start, Date first_year_end) {
  return std::min(unlimitedFraction(convention, depreciation_start, first_year_end), 1.0);
}

FirstFiscalYear firstFiscalYearOf(std::int32_t convention, Date placed_in_service,
                                  Date fiscal_year_end) {
  FirstFiscalYear year;
  year.end = firstFiscalYearEnd(placed_in_service, fiscal_year_end);
  year.start = firstFiscalYearStart(year.end);
  year.depreciation_start = depreciationStart(convention, placed_in_service, year.start, year.end);
  year.fraction = firstYearFraction(convention, year.depreciation_start, year.end);
  return year;
}

double daysCounted(Date year_end) { return containsLeapDay(year_end) ? 366.0 : 365.0; }

}  // namespace depcalc
