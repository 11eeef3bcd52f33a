// The fiscal years of the company.
#pragma once

#include <string>

#include "values/date.h"

namespace depcalc {

/// Reports are for fiscal years from 1000 to 9999, which have four digits and a year before them.
inline constexpr int first_report_year = 1000;
inline constexpr int last_report_year = 9999;

/// Fiscal years that begin with a month, each named by the calendar year in which it ends.
class CompanyYears {
 public:
  /// `first_month` is 1 to 12.
  explicit CompanyYears(int first_month) : first_month_(first_month) {}

  [[nodiscard]] Date firstDay(int year) const;
  /// The last day of the month before the first month.
  [[nodiscard]] Date lastDay(int year) const;
  /// The fiscal year that `day` falls in.
  [[nodiscard]] int of(Date day) const;

 private:
  int first_month_;
};

/// "FY2026".
std::string fiscalYearName(int year);

/// "April 1, 2025".
std::string longDate(Date date);

}  // namespace depcalc
