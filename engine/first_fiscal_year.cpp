#include "engine/first_fiscal_year.h"

namespace depcalc {
namespace {

/// The year of a start whose fiscal year ends on `end` in that calendar year, or else the next one.
int yearNamed(Date placed_in_service, Date end) {
  const int year = placed_in_service.year();
  return end < placed_in_service ? year + 1 : year;
}

}  // namespace

Date firstFiscalYearEnd(Date placed_in_service, Date fiscal_year_end) {
  Silent nobody;
  return firstFiscalYearEnd(placed_in_service, fiscal_year_end, nobody);
}

int firstFiscalYear(Date placed_in_service, Date fiscal_year_end) {
  const auto end = fiscal_year_end.parts();
  return yearNamed(placed_in_service, Date::carrying(placed_in_service.year(), end.month, end.day));
}

int firstFiscalYearStrict(Date placed_in_service, Date fiscal_year_end) {
  const auto end = fiscal_year_end.parts();
  return yearNamed(placed_in_service, Date::strict(placed_in_service.year(), end.month, end.day));
}

}  // namespace depcalc
