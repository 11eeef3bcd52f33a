#include "engine/first_year_fraction.h"

namespace depcalc {
namespace {

Date firstOfMonth(Date::Parts date) { return Date::carrying(date.year, date.month, 1); }

Date firstOfNextMonth(Date::Parts date) { return Date::carrying(date.year, date.month + 1, 1); }

/// Whether the fiscal year that ends on `year_end` contains a 29 February.
bool containsLeapDay(Date year_end) {
  const int year = year_end.year();
  const bool ends_by_february_28 = Date::strict(year, 2, 28) >= year_end;
  return Date::exists(ends_by_february_28 ? year - 1 : year, 2, 29);
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
  Silent nobody;
  return firstYearFraction(convention, depreciation_start, first_year_end, nobody);
}

FirstFiscalYear firstFiscalYearOf(std::int32_t convention, Date placed_in_service,
                                  Date fiscal_year_end) {
  Silent nobody;
  return firstFiscalYearOf(convention, placed_in_service, fiscal_year_end, nobody);
}

double daysCounted(Date year_end) { return containsLeapDay(year_end) ? 366.0 : 365.0; }

}  // namespace depcalc
