#include "engine/first_fiscal_year.h"

namespace depcalc {

Date firstFiscalYearEnd(Date placed_in_service, Date fiscal_year_end) {
  const Date end =
      Date::carrying(placed_in_service.year(), fiscal_year_end.month(), fiscal_year_end.day());
  const bool ended_before = end < placed_in_service && yearsBetween(end, placed_in_service) < 1;
  return ended_before ? end.plusYears(1) : end;
}

Date firstFiscalYearStart(Date first_fiscal_year_end) {
  return Date::carrying(first_fiscal_year_end.year() - 1, first_fiscal_year_end.month(),
                        first_fiscal_year_end.day() + 1);
}

}  // namespace depcalc
