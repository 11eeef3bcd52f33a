// The methods of depreciation by the texts that records keep.
#pragma once

#include <array>
#include <string_view>

namespace depcalc {

inline constexpr std::string_view method_straight_line = "SL";
inline constexpr std::string_view method_sum_of_years_digits = "SYD";
inline constexpr std::string_view method_double_declining_balance = "DDB";
inline constexpr std::string_view method_units_of_production = "UOP";

/// A method and the name that users see.
struct Method {
  std::string_view code;
  std::string_view name;
};

/// In the order in which they are calculated.
inline constexpr std::array<Method, 4> methods{
    {{method_straight_line, "Straight Line"},
     {method_sum_of_years_digits, "Sum of the Years' Digits"},
     {method_double_declining_balance, "Double Declining Balance"},
     {method_units_of_production, "Units of Production"}}};

/// Whether a record of `method` keeps a rate alone in the place of its amounts.
constexpr bool isUnitsOfProduction(std::string_view method) {
  return method == method_units_of_production;
}

/// The same for who shows records and sums them up: there small letters count, too.
constexpr bool countsAsUnitsOfProduction(std::string_view method) {
  return isUnitsOfProduction(method) || method == "uop";
}

}  // namespace depcalc
