// Who listens to a calculation as it goes.
//
// Each rule of depreciation is one text, a template over a listener: it calculates with the
// listener's numbers and money and tells it every step that an accountant would write down. To one
// who keeps silent all of it comes to plain arithmetic, without a trace in the machine code; one
// whose numbers remember how they were made can say how an amount came about. What is said is then
// what was calculated: there is no second formula.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <utility>

#include "values/currency.h"
#include "values/date.h"
#include "values/rounding.h"

namespace depcalc {

/// What a value that is told stands for.
enum class RuleStep : std::uint8_t {
  // The first fiscal year and its share of a year's depreciation.
  first_fiscal_year,    ///< from: placed in service; to: the year's last day
  months_counted,       ///< days over 30; from, to: the days
  whole_months,         ///< to the nearest
  days_in_service,      ///< from, to: the days, both counted
  days_of_fiscal_year,  ///< 365 or 366; to: its last day
  first_share,          ///< number: the convention
  whole_year_at_most,   ///< the share cut down to 1
  share_left,           ///< 1 less the first share
  // Schedules; number: the asset year, from 1.
  base,                   ///< basis less salvage value
  annual,                 ///< straight line: a year's depreciation
  first_year,             ///< its first share
  whole_year,             ///< a year in full
  end_of_last_year,       ///< what the first year left of the last one
  sum_of_digits,          ///< 1 + 2 + … + life
  whole_digits,           ///< to the nearest
  asset_year,             ///< what an asset year carries
  rate,                   ///< declining balance: 2 / life
  book_value,             ///< at the start of an asset year
  rest_of_asset_year,     ///< the share of an asset year that its first fiscal year left
  start_of_asset_year,    ///< the share of an asset year that begins in the fiscal year
  sum_of_shares,          ///< both
  left,                   ///< basis, less what was taken, less salvage value
  within_what_is_left,    ///< the amount does not go below salvage
  only_what_is_left,      ///< it would
  rest_and_what_is_left,  ///< its second share would
  taken,                  ///< in all years so far
  difference,             ///< what a schedule's rounding left over, or took too much
  settled,                ///< the amount with that
  // Units of production.
  rate_per_unit,
  no_rate,          ///< there is no capacity
  units_left,       ///< basis less salvage value, less what earlier units took
  amount_of_units,  ///< units × rate
  no_units,         ///< nothing was produced, or nothing is left
  units_taken,      ///< what the year takes
  // Disposal.
  year_of_disposal,      ///< from: the day; to: the fiscal year's last day
  whole_amount,          ///< what the year would have taken
  months_held,           ///< from: the year's first day; to: the day
  days_held,             ///< the same
  days_of_that_year,     ///< 365 or 366; to: its last day
  share_held,            ///< number: the convention
  limited_share_held,    ///< from 0 to 1
  share_covered,         ///< of its year by the whole amount
  share_of_amount,       ///< what the share held takes, to the cent
  no_more_than_whole,    ///< it would be more than the whole amount
  gone_at_once,          ///< in and out of service in one fiscal year
  taken_until_disposal,  ///< what the year takes
};

/// What else is to be said of a step. Days and numbers that a rule has at hand anyway.
struct StepAbout {
  std::int32_t number = 0;
  Date from{};
  Date to{};
};

/// The years from one to another, none where that comes first.
class YearsInTurn {
 public:
  struct End {};
  class Year {
   public:
    constexpr Year(std::int32_t year, std::int32_t last) : year_(year), last_(last) {}
    constexpr std::int32_t operator*() const { return year_; }
    constexpr Year& operator++() {
      ++year_;
      return *this;
    }
    constexpr bool operator!=(End /*end*/) const { return year_ <= last_; }

   private:
    std::int32_t year_;
    std::int32_t last_;
  };

  constexpr YearsInTurn(std::int32_t first, std::int32_t last) : first_(first), last_(last) {}
  [[nodiscard]] constexpr Year begin() const { return {first_, last_}; }
  [[nodiscard]] static constexpr End end() { return {}; }

 private:
  std::int32_t first_;
  std::int32_t last_;
};

/// The control flow of a rule where one asset is calculated at a time. A rule says its conditions
/// and loops by these names, since of several assets side by side each goes its own way.
struct OneAsset {
  /// `if (const auto those = listener.where(…))` goes in with the assets for which it holds.
  static constexpr bool where(bool condition) { return condition; }
  /// The same for a block that changes nothing where it does not hold.
  static constexpr bool whereNeeded(bool condition) { return condition; }
  /// These assets go no further in this function; true where no others are left to return to.
  static constexpr bool done() { return true; }
  /// `for (const std::int32_t year : listener.years(1, last))`, each asset up to its last year.
  static constexpr YearsInTurn years(std::int32_t first, std::int32_t last) {
    return {first, last};
  }
  /// Kept while a function runs in which assets are done.
  static constexpr bool all() { return true; }
  static constexpr bool both(bool one, bool other) { return one && other; }
  template <typename Value>
  static constexpr Value choose(bool condition, Value yes, Value no) {
    return condition ? yes : no;
  }
  /// What a block or a loop changes and is asked for behind it.
  template <typename Value>
  static constexpr void set(Value& variable, Value value) {
    variable = std::move(value);
  }
  /// `amount` more than `total`.
  template <typename Money>
  static constexpr Money sum(const Money& total, const Money& amount) {
    return total + amount;
  }
};

/// Numbers and money to calculate with, by the operators and names that double and Currency have,
/// and what is told of them. A value that is told is the one to go on with. Control flow goes by
/// the names of `OneAsset`.
template <typename T>
concept Listener = requires(T& listener, typename T::Amount amount,
                            const typename T::Number& number, const typename T::Money& money) {
  { listener.tell(RuleStep::annual, number, StepAbout{}) } -> std::same_as<typename T::Number>;
  { listener.tell(RuleStep::base, money, StepAbout{}) } -> std::same_as<typename T::Money>;
  { listener.atMost(RuleStep::first_share, number, number) } -> std::same_as<typename T::Number>;
  { listener.recall(RuleStep::first_share, 1.0) } -> std::same_as<typename T::Number>;
  { listener.take(amount, RuleStep::settled, money) } -> std::same_as<typename T::Money>;
  listener.beginYear(0);
};

/// Listens to nothing.
template <typename NumberType, typename MoneyType>
struct Nobody : OneAsset {
  using Number = NumberType;
  using Money = MoneyType;
  using Amount = Currency&;

  template <typename Value>
  static constexpr Value tell(RuleStep /*step*/, Value value, StepAbout /*about*/ = {}) {
    return value;
  }
  /// The lesser of both; `step` is told where that is `most`.
  template <typename Value>
  static constexpr Value atMost(RuleStep /*step*/, Value value, Value most) {
    return std::min(value, most);
  }
  /// A value that was told before, and came here on another way.
  static constexpr Number recall(RuleStep /*step*/, Number value) { return value; }
  /// Makes `value` the amount of the year.
  static constexpr Money take(Currency& amount, RuleStep /*step*/, Money value) {
    amount = Currency(value);
    return value;
  }
  /// What is told from now on is about the fiscal year of that index.
  static constexpr void beginYear(std::int32_t /*index*/) {}
};

/// The numbers as they come, with every check.
using Silent = Nobody<double, Currency>;

static_assert(Listener<Silent>);

}  // namespace depcalc
