// Why an asset is not calculated, in the server's words: an error's class, its message, its detail
// and the way on.
#pragma once

#include <cstdint>

namespace depcalc::postgresql {

enum class Refusal : std::uint8_t {
  none,
  start_outside_calendar,
  year_end_outside_calendar,
  first_year_outside_calendar,
  schedule_outside_calendar,
  life_not_finite,
  life_too_short,
  life_too_long,
  unknown_convention,
  basis_not_finite,
  basis_not_positive,
  basis_too_large,
  salvage_not_finite,
  salvage_negative,
  salvage_too_large,
  salvage_above_basis,
  capacity_not_finite,
  capacity_negative,
  unknown_method,
  no_schedule,
  out_of_memory,
  not_calculated,
};
inline constexpr int refusals = static_cast<int>(Refusal::not_calculated) + 1;

/// The error classes of SQL that a refusal falls into.
enum class ErrorClass : std::uint8_t {
  numeric_value_out_of_range,  ///< 22003
  datetime_field_overflow,     ///< 22008
  invalid_parameter_value,     ///< 22023
  out_of_memory,               ///< 53200
  internal_error,              ///< XX000
};

/// The argument whose value the detail shows.
enum class Argument : std::uint8_t {
  none,
  placed_in_service,
  fiscal_year_end,
  life,
  convention,
  basis,
  salvage,
  capacity,
  method,
};

struct RefusalText {
  ErrorClass error_class;
  Argument argument;
  const char* message;
  const char* detail;  ///< with %s for the argument's value, if it names one
  const char* hint;
};

/// Of any refusal but `none`.
const RefusalText& textOf(Refusal refusal) noexcept;

}  // namespace depcalc::postgresql
