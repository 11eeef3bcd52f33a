#include "host/fiscal_year.h"

namespace depcalc {

Date currentFiscalYearStart(int first_month, Date today) {
  const Date this_year = Date::carrying(today.year(), first_month, 1);
  const Date start = this_year <= today ? this_year : this_year.plusYears(-1);
  const Date::Parts eve = start.plusDays(-1).parts();
  return eve.month == 2 && eve.day == 29 ? start.plusYears(-1) : start;
}

bool isSameDayOfYear(Date a, Date b) { return a.month() == b.month() && a.day() == b.day(); }

}  // namespace depcalc
