#include "postgresql/calculation.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <new>
#include <span>
#include <string_view>
#include <type_traits>

#include "engine/double_declining_balance.h"
#include "engine/first_fiscal_year.h"
#include "engine/first_year_fraction.h"
#include "engine/schedule_span.h"
#include "engine/straight_line.h"
#include "engine/sum_of_years_digits.h"
#include "engine/units_of_production.h"
#include "values/asset_limits.h"
#include "values/display_format.h"
#include "values/number_text.h"

namespace depcalc::postgresql {
namespace {

static_assert(std::is_trivially_destructible_v<AssetSchedule> &&
              std::is_trivially_copyable_v<AssetSchedule> &&
              std::is_trivially_destructible_v<AssetArguments>);
static_assert(most_amounts == static_cast<std::size_t>(longest_life) + 2);

/// A refusal on its way out of a calculation, no further than `guarded`.
struct Refused {
  Refusal refusal;
};

void refuseIf(bool refused, Refusal refusal) {
  if (refused) throw Refused{refusal};
}

/// The refusal that the exception being handled stands for.
Refusal caughtRefusal() noexcept {
  try {
    throw;
  } catch (const Refused& refused) {
    return refused.refusal;
  } catch (const std::bad_alloc&) {
    return Refusal::out_of_memory;
  } catch (...) {
    return Refusal::not_calculated;
  }
}

Date dateOf(ServerDay day, Refusal outside) {
  constexpr std::int64_t days_before_2000 = 36'526;
  static const std::int64_t first = Date::strict(100, 1, 1).dayNumber();
  static const std::int64_t last = Date::strict(last_year_of_calendar, 12, 31).dayNumber();
  const std::int64_t number = day + days_before_2000;
  refuseIf(number < first || number > last, outside);
  return Date::fromDayNumber(number);
}

double lifeOf(double years) {
  refuseIf(!std::isfinite(years), Refusal::life_not_finite);
  refuseIf(years < shortest_life, Refusal::life_too_short);
  refuseIf(years > longest_life, Refusal::life_too_long);
  return nearestEven(years);
}

/// Without the zeros that a column's scale adds, which take a longer way to the same amount.
std::string_view withoutTrailingZeros(NumberText number) {
  std::string_view text(number.begin, number.size);
  if (text.find('.') == std::string_view::npos) return text;
  text = text.substr(0, text.find_last_not_of('0') + 1);
  return text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
}

/// The number, or a refusal where it is none: below all others or above them where it has digits,
/// too many for a double.
double numberIn(std::string_view text, Refusal not_finite, Refusal below, Refusal above) {
  if (const auto number = tryNumberFromText(text)) return *number;
  const bool negative = text.starts_with('-');
  const bool has_digits = std::isdigit(static_cast<unsigned char>(text[negative ? 1 : 0])) != 0;
  throw Refused{!has_digits ? not_finite : negative ? below : above};
}

struct Cost {
  Currency basis;
  Currency salvage;
};

Cost costOf(NumberText basis_number, NumberText salvage_number) {
  const std::string_view basis_text = withoutTrailingZeros(basis_number);
  const std::string_view salvage_text = withoutTrailingZeros(salvage_number);
  const double basis = numberIn(basis_text, Refusal::basis_not_finite, Refusal::basis_not_positive,
                                Refusal::basis_too_large);
  refuseIf(basis <= 0, Refusal::basis_not_positive);
  refuseIf(basis > largest_amount, Refusal::basis_too_large);
  const double salvage = numberIn(salvage_text, Refusal::salvage_not_finite,
                                  Refusal::salvage_negative, Refusal::salvage_too_large);
  refuseIf(salvage < 0, Refusal::salvage_negative);
  refuseIf(salvage > largest_amount, Refusal::salvage_too_large);
  refuseIf(Currency::fromText(salvage_text) > Currency::fromText(basis_text),
           Refusal::salvage_above_basis);
  return {moneyAsShown(basis_text), moneyAsShown(salvage_text)};
}

using Rule = void (*)(const ScheduleInput&, Amounts);

Rule ruleOf(ScheduledBy method) {
  switch (method) {
    case ScheduledBy::straight_line:
      return straightLine;
    case ScheduledBy::sum_of_years_digits:
      return sumOfYearsDigits;
    case ScheduledBy::double_declining_balance:
      return doubleDecliningBalance;
    case ScheduledBy::units_of_production:
      break;
  }
  throw Refused{Refusal::no_schedule};
}

void calculate(const AssetArguments& asset, AssetSchedule& schedule) {
  const Rule rule = ruleOf(asset.method);
  const Date placed = dateOf(asset.placed_in_service, Refusal::start_outside_calendar);
  const Date year_end = dateOf(asset.fiscal_year_end, Refusal::year_end_outside_calendar);
  const double life = lifeOf(asset.life);
  const Cost cost = costOf(asset.basis, asset.salvage);
  refuseIf(!endsWithinCalendar(placed.year(), life), Refusal::schedule_outside_calendar);

  const FirstFiscalYear first = firstFiscalYearOf(asset.convention, placed, year_end);
  const ScheduleInput input{.basis = cost.basis,
                            .salvage = cost.salvage,
                            .life = life,
                            .convention = asset.convention,
                            .first_year_fraction = first.fraction};
  schedule.amounts.fill(Currency());
  rule(input, Amounts(std::span(schedule.amounts).first(static_cast<std::size_t>(life) + 2)));
  schedule.basis = cost.basis;
  schedule.first_fiscal_year = first.end.year();
  schedule.fiscal_years = static_cast<std::int32_t>(fiscalYearsSpanned(life, input.fullYear()));
}

Currency rateOf(NumberText basis, NumberText salvage, double capacity) {
  const Cost cost = costOf(basis, salvage);
  refuseIf(!std::isfinite(capacity), Refusal::capacity_not_finite);
  refuseIf(capacity < 0, Refusal::capacity_negative);
  // As the record takes it, in whole units; what rounds up beyond all numbers is none.
  const double whole_units = tryNumberFromText(formatWhole(capacity)).value_or(0.0);
  return unitsOfProduction(cost.basis, cost.salvage, whole_units);
}

std::int32_t firstYearOf(ServerDay placed_in_service, ServerDay fiscal_year_end) {
  const Date placed = dateOf(placed_in_service, Refusal::start_outside_calendar);
  const Date end = dateOf(fiscal_year_end, Refusal::year_end_outside_calendar);
  const int year = firstFiscalYear(placed, end);
  refuseIf(year > last_year_of_calendar, Refusal::first_year_outside_calendar);
  return year;
}

}  // namespace

Refusal calculateSchedule(const AssetArguments& asset, AssetSchedule& schedule) noexcept {
  try {
    calculate(asset, schedule);
    return Refusal::none;
  } catch (...) {
    return caughtRefusal();
  }
}

Currency amountOf(const AssetSchedule& schedule, std::int32_t fiscal_year) noexcept {
  const std::int64_t index = std::int64_t{fiscal_year} - schedule.first_fiscal_year;
  if (index < 0 || index >= schedule.fiscal_years) return {};
  return schedule.amounts[static_cast<std::size_t>(index)];
}

Currency accumulatedBy(const AssetSchedule& schedule, std::int32_t fiscal_year) noexcept {
  const std::int64_t years = std::int64_t{fiscal_year} - schedule.first_fiscal_year + 1;
  const auto taken = std::clamp<std::int64_t>(years, 0, schedule.fiscal_years);
  std::int64_t ticks = 0;  // no sum of so few amounts below ten million leaves 64 bits
  for (std::int64_t i = 0; i < taken; ++i) {
    ticks += schedule.amounts[static_cast<std::size_t>(i)].ticks();
  }
  return Currency::fromTicks(ticks);
}

Refusal calculateRate(NumberText basis, NumberText salvage, double capacity,
                      Currency& rate) noexcept {
  try {
    rate = rateOf(basis, salvage, capacity);
    return Refusal::none;
  } catch (...) {
    return caughtRefusal();
  }
}

Refusal findFirstFiscalYear(ServerDay placed_in_service, ServerDay fiscal_year_end,
                            std::int32_t& year) noexcept {
  try {
    year = firstYearOf(placed_in_service, fiscal_year_end);
    return Refusal::none;
  } catch (...) {
    return caughtRefusal();
  }
}

}  // namespace depcalc::postgresql
