// Prorating conventions: how much of a year's depreciation the first fiscal year takes.
#pragma once

#include <cstdint>

namespace depcalc {

/// The number is what the record keeps and what the calculations compare.
enum eConvention : std::int32_t {
  cdepfullyear = 0,    ///< Full Year: a whole year's depreciation in the first fiscal year
  cdepHalfYear = 1,    ///< Half Year: half a year's
  cdepFullMonth = 2,   ///< Full Month: from the first day of the month placed in service
  cdepHalfMonth = 3,   ///< Half Month: from that day if placed in service before the 16th, else
                       ///< from the first of the next month
  cdepActualDays = 4,  ///< Actual Days: days in service in that fiscal year over 365 or 366
};

}  // namespace depcalc
