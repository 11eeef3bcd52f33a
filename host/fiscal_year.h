// The fiscal year that hosts hand out.
#pragma once

#include "values/date.h"

namespace depcalc {

/// The first day of the latest fiscal year that has begun on or before `today`, in the company's
/// `first_month` (1 to 12), and whose eve is not a 29 February.
///
/// The eve is what the calculator saves with every asset as the end of its fiscal year, and only
/// month and day of it matter. A fiscal year that begins in March has 29 February for its eve in
/// leap years; common years do not have that day, and the comparison of an asset placed in service
/// in one stops at its headers. So the year before is handed out then, which ends on 28 February.
Date currentFiscalYearStart(int first_month, Date today);

/// Whether fiscal years that end on these days are the same; the year itself does not count.
bool isSameDayOfYear(Date a, Date b);

}  // namespace depcalc
