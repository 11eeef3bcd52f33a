// The calculation behind the functions of the extension, apart from the server.
//
// The server leaves a function that fails by a long jump, over whatever is alive in it. So all that
// passes here is plain data: the caller owns every byte, nothing needs a destructor, and nothing is
// thrown. Each function may be called with any bits in its numbers.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "postgresql/refusal.h"
#include "values/currency.h"

namespace depcalc::postgresql {

/// A number as the server writes it in decimal: 1250.50, -3, NaN, Infinity. To be read while the
/// call lasts.
struct NumberText {
  const char* begin;
  std::size_t size;
};

/// The server's days: 0 is 1 January 2000.
using ServerDay = std::int32_t;

enum class ScheduledBy : std::uint8_t {
  straight_line,
  sum_of_years_digits,
  double_declining_balance,
  units_of_production,
};

/// What is known of an asset. Money is read as `depcalc schedule` reads its columns: checked as it
/// stands, then taken in cents, halves to even. The life is taken in whole years, halves to even.
struct AssetArguments {
  ServerDay placed_in_service;
  ServerDay fiscal_year_end;  ///< only month and day count
  double life;                ///< in years
  std::int32_t convention;    ///< an eConvention
  NumberText basis;
  NumberText salvage;
  ScheduledBy method;
};

/// Fiscal years that the longest life spans, and one more that the engine keeps room for.
inline constexpr std::size_t most_amounts = 52;

/// What an asset gives. Amounts stand for the fiscal years from the first on.
struct AssetSchedule {
  std::int32_t first_fiscal_year;
  std::int32_t fiscal_years;
  Currency basis;  ///< as it was taken
  std::array<Currency, most_amounts> amounts;
};

/// `none` where `schedule` was filled.
Refusal calculateSchedule(const AssetArguments& asset, AssetSchedule& schedule) noexcept;

/// The amount of a fiscal year, 0 outside the schedule.
Currency amountOf(const AssetSchedule& schedule, std::int32_t fiscal_year) noexcept;
/// The amounts up to a fiscal year, itself included.
Currency accumulatedBy(const AssetSchedule& schedule, std::int32_t fiscal_year) noexcept;

/// The depreciation per unit of production, to four decimals; `capacity` is taken in whole units.
Refusal calculateRate(NumberText basis, NumberText salvage, double capacity,
                      Currency& rate) noexcept;

/// The fiscal year in which an asset is placed in service, named by the year it ends in.
Refusal findFirstFiscalYear(ServerDay placed_in_service, ServerDay fiscal_year_end,
                            std::int32_t& year) noexcept;

}  // namespace depcalc::postgresql
