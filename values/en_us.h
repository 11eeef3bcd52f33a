// How numbers and months are written: as in the United States, everywhere.
#pragma once

#include <array>
#include <string_view>

/// The process's own locale is never read. Dates are month first.
namespace depcalc::en_us {

inline constexpr char decimal_point = '.';
inline constexpr char thousands_separator = ',';
inline constexpr std::array<std::string_view, 12> month_names{
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

}  // namespace depcalc::en_us
