// The limits of what is entered for an asset, for every door it comes in by.
#pragma once

namespace depcalc {

inline constexpr double shortest_life = 1;  ///< in years; checked before the life is made whole
inline constexpr double longest_life = 50;

/// Of a basis and a salvage value, in the currency's units.
inline constexpr double largest_amount = 9'999'999.99;

inline constexpr int last_year_of_calendar = 9999;

/// Whether the fiscal years of an asset that is placed in service in `year` have dates to the last.
/// A year to spare is kept for a partial first one.
constexpr bool endsWithinCalendar(int year, double life) {
  return year + life < last_year_of_calendar;
}

}  // namespace depcalc
