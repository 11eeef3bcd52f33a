// The fiscal year in which an asset is placed in service.
#pragma once

#include "values/date.h"

namespace depcalc {

/// The last day of the fiscal year that `placed_in_service` falls in. Of `fiscal_year_end` only
/// month and day count. A start on the last day itself belongs to the year ending that day. A
/// fiscal year is named by the year of this date.
///
/// The day is looked up in the calendar year of the start, where 29 February of a common year is
/// 1 March; one before the start moves on a year, where 29 February becomes 28 February.
Date firstFiscalYearEnd(Date placed_in_service, Date fiscal_year_end);

/// The day after the same date one year earlier.
Date firstFiscalYearStart(Date first_fiscal_year_end);

}  // namespace depcalc
