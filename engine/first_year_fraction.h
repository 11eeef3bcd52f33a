// Prorating the first fiscal year by convention.
#pragma once

#include <cstdint>

#include "values/date.h"

namespace depcalc {

/// The day from which the first year's share is counted.
Date depreciationStart(std::int32_t convention, Date placed_in_service, Date first_year_start,
                       Date first_year_end);

/// The share of a year's depreciation that the first fiscal year takes, at most 1:
/// 1 for Full Year and 0.5 for Half Year; whole months (of 30 days, halves to even) over 12 for
/// Full Month and Half Month; days in service over 365, or 366 in a fiscal year with a
/// 29 February, for Actual Days; 0 for any other number. A half-month start after the 15th in
/// the last month of the fiscal year takes nothing.
double firstYearFraction(std::int32_t convention, Date depreciation_start, Date first_year_end);

}  // namespace depcalc
