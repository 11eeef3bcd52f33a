#include "postgresql/refusal.h"

#include <array>

namespace depcalc::postgresql {
namespace {

using enum ErrorClass;

constexpr const char* some_life = "Give a useful life from 1 to 50 years.";
constexpr const char* some_basis = "Give a basis above 0 and up to 9,999,999.99.";
constexpr const char* some_salvage = "Give a salvage value from 0 to 9,999,999.99.";
constexpr const char* some_capacity = "Give the units that the asset will produce, or 0.";

/// In the order of `Refusal`, from the one behind `none`.
constexpr std::array<RefusalText, refusals - 1> texts{{
    {datetime_field_overflow, Argument::placed_in_service, "date placed in service out of range",
     "The asset was placed in service on %s.",
     "Give a date from 0100-01-01 on, so early that the schedule ends before the year 9999."},
    {datetime_field_overflow, Argument::fiscal_year_end, "fiscal-year end out of range",
     "The fiscal year ends on %s.",
     "Give a date from 0100-01-01 to 9999-12-31; only its month and day count."},
    {datetime_field_overflow, Argument::placed_in_service, "date placed in service out of range",
     "The fiscal year of %s ends after the year 9999.", "Give an earlier date."},
    {datetime_field_overflow, Argument::placed_in_service, "schedule out of range",
     "The schedule of an asset placed in service on %s would run beyond the year 9999.",
     "Give an earlier date or a shorter life."},
    {numeric_value_out_of_range, Argument::life, "useful life is not a number",
     "The useful life is %s.", some_life},
    {numeric_value_out_of_range, Argument::life, "useful life out of range",
     "The useful life of %s years is too short.", some_life},
    {numeric_value_out_of_range, Argument::life, "useful life out of range",
     "The useful life of %s years is too long.", some_life},
    {invalid_parameter_value, Argument::convention, "unknown prorating convention",
     "There is no convention \"%s\".",
     "Give Full Year, Half Year, Full Month, Half Month or Actual Days."},
    {numeric_value_out_of_range, Argument::basis, "basis is not a number", "The basis is %s.",
     some_basis},
    {numeric_value_out_of_range, Argument::basis, "basis out of range",
     "The basis of %s is not above 0.", some_basis},
    {numeric_value_out_of_range, Argument::basis, "basis out of range",
     "The basis of %s is too large.", some_basis},
    {numeric_value_out_of_range, Argument::salvage, "salvage value is not a number",
     "The salvage value is %s.", some_salvage},
    {numeric_value_out_of_range, Argument::salvage, "salvage value out of range",
     "The salvage value of %s is below 0.", some_salvage},
    {numeric_value_out_of_range, Argument::salvage, "salvage value out of range",
     "The salvage value of %s is too large.", some_salvage},
    {invalid_parameter_value, Argument::salvage, "salvage value above the basis",
     "The salvage value of %s is more than the asset has cost.",
     "Give a salvage value from 0 up to the basis."},
    {numeric_value_out_of_range, Argument::capacity, "production capacity is not a number",
     "The production capacity is %s.", some_capacity},
    {numeric_value_out_of_range, Argument::capacity, "production capacity out of range",
     "The production capacity of %s is below 0.", some_capacity},
    {invalid_parameter_value, Argument::method, "unknown depreciation method",
     "There is no method \"%s\".", "Give SL, SYD or DDB."},
    {invalid_parameter_value, Argument::none, "units of production has no schedule",
     "Its depreciation depends on the units produced in each fiscal year.",
     "Multiply production_rate(basis, salvage, capacity) by the units produced."},
    {out_of_memory, Argument::none, "out of memory", "The asset could not be calculated.",
     "Free memory on the server, then try again."},
    {internal_error, Argument::none, "asset could not be calculated",
     "The calculation met an error that no limit foresees.",
     "Please report this with the arguments of the call."},
}};

}  // namespace

const RefusalText& textOf(Refusal refusal) noexcept {
  return texts[static_cast<std::size_t>(refusal) - 1];
}

}  // namespace depcalc::postgresql
