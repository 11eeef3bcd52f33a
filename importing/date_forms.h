// Dates as spreadsheets write them where their parts stand in another order.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace depcalc {

/// Of three numbers; a year of four digits in front, or a month's name, says it all by itself.
enum class DateOrder { month_day_year, day_month_year, year_month_day };

/// What a date's text says about the order in its file.
enum class DateHint {
  none,         ///< nothing: it is no date, or the same day in any order
  month_first,  ///< only with the month first it is a date
  day_first,    ///< only with the day first it is a date, or its points say so
  year_first,   ///< only with the year first it is a date
  either,       ///< it is two different days, as 03/04/2024 is
};

/// The day as YYYY-MM-DD: of three numbers between points, slashes, hyphens or blanks, or of two
/// and a month's name in English, German, French, Spanish, Italian or Dutch, or of eight digits,
/// year first. Years of two digits are 1930 to 2029. A time of day behind it is dropped. Nothing
/// where it is no date in this order.
std::optional<std::string> plainDate(std::string_view text, DateOrder order);

/// The same, or a day of every year as MM-DD; between hyphens the month is first.
std::optional<std::string> plainDayOfYear(std::string_view text, DateOrder order);

DateHint dateHint(std::string_view text);

}  // namespace depcalc
