// Prorating the first fiscal year by convention: the averaging conventions of the field, by which
// assets count as placed in service at a set point of the year or month. Half Year is also that of
// the United States' tax rules (Internal Revenue Code, section 168(d)(4)(A)); Full Month and Half
// Month are the full-month and the modified half-month convention.
#pragma once

#include <cstdint>

#include "values/date.h"

namespace depcalc {

/// The day from which the first year's share is counted.
Date depreciationStart(std::int32_t convention, Date placed_in_service, Date first_year_start,
                       Date first_year_end);

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
double daysCounted(Date year_end);

/// The first fiscal year of an asset, and the share of a year's depreciation that it takes.
struct FirstFiscalYear {
  Date start;
  Date end;
  Date depreciation_start;
  double fraction = 0;
};

/// All of the above, from what is known of an asset. A day outside the calendar is error 5.
FirstFiscalYear firstFiscalYearOf(std::int32_t convention, Date placed_in_service,
                                  Date fiscal_year_end);

}  // namespace depcalc
