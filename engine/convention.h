// Prorating conventions: how much of a year's depreciation the first fiscal year takes. What each
// takes is calculated in first_year_fraction.h.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

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

/// The names that users see, by number.
inline constexpr std::array<std::string_view, 5> convention_names{
    "Full Year", "Half Year", "Full Month", "Half Month", "Actual Days"};

/// The digit text that the record keeps for a name; "0" for any other text.
std::string_view conventionDigit(std::string_view name);

/// The name for a record's digit text; "Full Year" for any other text.
std::string_view conventionName(std::string_view digit);

/// The digit text for a convention's number or name in any case; empty for any other text. For
/// data files, where a slip must not pass as Full Year.
std::optional<std::string_view> conventionFromFile(std::string_view text);

}  // namespace depcalc
