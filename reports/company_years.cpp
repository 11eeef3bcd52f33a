#include "reports/company_years.h"

namespace depcalc {

Date CompanyYears::firstDay(int year) const {
  return Date::strict(first_month_ == 1 ? year : year - 1, first_month_, 1);
}

Date CompanyYears::lastDay(int year) const {
  return first_month_ == 1 ? Date::strict(year, 12, 31) : Date::carrying(year, first_month_, 0);
}

int CompanyYears::of(Date day) const {
  const auto [year, month, _] = day.parts();
  return first_month_ > 1 && month >= first_month_ ? year + 1 : year;
}

std::string fiscalYearName(int year) { return "FY" + std::to_string(year); }

std::string longDate(Date date) {
  const auto [year, month, day] = date.parts();
  return date.monthName() + ' ' + std::to_string(day) + ", " + std::to_string(year);
}

}  // namespace depcalc
