#include "engine/first_fiscal_year.h"

namespace depcalc {

Date firstFiscalYearEnd(Date placed_in_service, Date fiscal_year_end) {
  const auto year_end = fiscal_year_end.parts();
  const Date end = Date::carrying(placed_in_service.year(), year_end.month, year_end.day);
  return end < placed_in_service ? end.plusYears(1) : end;
}

Date firstFiscalYearStart(Date first_fiscal_year_end) {
  const auto [year, month, day] = first_fiscal_year_end.parts();
  return Date::carrying(year - 1, month, day + 1);
}

}  // namespace depcalc
