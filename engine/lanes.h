// Schedules without checks, of an asset that is known to need none. `fitsInLane` says beforehand
// that no step of a schedule will leave the range in which lane_values.h is exact, divide by zero
// or lack an amount to write to: then no step has to look.
#pragma once

#include "engine/lane_values.h"
#include "engine/schedule.h"
#include "engine/told_steps.h"

namespace depcalc {

/// What basis and salvage value of an asset in a lane are below in size, and how long it lasts.
inline constexpr double most_in_lane = 100'000'000.0;
inline constexpr double longest_life_in_lane = 100.0;

/// Whether the schedules of `input` can be calculated without a check.
///
/// By straight line and by the digits a year takes at most twice the depreciable base, itself below
/// twice the limit; the declining balance takes at most twice the book value, which does not grow
/// but by rounding, since from a life of one year on its rate is at most 2. Over 102 years the
/// total stays below 10^11 in money, 10^15 in ten-thousandths, and that below 2^51.
inline bool fitsInLane(const ScheduleInput& input) {
  constexpr auto most = static_cast<std::int64_t>(most_in_lane) * Currency::ticks_per_unit;
  const auto within = [](Currency amount) {
    return amount.ticks() < most && amount.ticks() > -most;
  };
  return within(input.basis) && within(input.salvage) && input.life >= 1.0 &&
         input.life <= longest_life_in_lane && input.first_year_fraction >= 0.0 &&
         input.first_year_fraction <= 1.0;
}

/// Stands for ScheduleInput.
struct LaneInput {
  explicit LaneInput(const ScheduleInput& input)
      : basis(input.basis),
        salvage(input.salvage),
        life(input.life),
        first_year_fraction(input.first_year_fraction),
        full_year(input.fullYear()),
        last_whole_year(static_cast<std::int32_t>(nearestEvenSmall(input.life - 1.0))),
        year_after_last(static_cast<std::int32_t>(nearestEvenSmall(input.life))) {}

  [[nodiscard]] bool fullYear() const { return full_year; }
  [[nodiscard]] bool lasts(std::int32_t years) const {
    return static_cast<double>(years) == life.value();
  }
  [[nodiscard]] std::int32_t lastWholeYear() const { return last_whole_year; }
  [[nodiscard]] std::int32_t yearAfterLast() const { return year_after_last; }

  LaneMoney<double> basis;
  LaneMoney<double> salvage;
  LaneNumber<double> life;
  LaneNumber<double> first_year_fraction;
  bool full_year;
  std::int32_t last_whole_year;
  std::int32_t year_after_last;
};

/// Stands for Amounts.
class LaneAmounts {
 public:
  explicit LaneAmounts(Currency* first) : first_(first) {}

  Currency& operator[](std::int32_t index) const { return first_[index]; }
  [[nodiscard]] bool isTaken(std::int32_t index) const { return first_[index] != Currency(); }

 private:
  Currency* first_;
};

/// Listens to nothing of an asset that fits in a lane.
struct SilentUnchecked : Nobody<LaneNumber<double>, LaneMoney<double>> {
  /// To calculate takes less time than to guess wrong whether it is needed.
  static constexpr bool whereNeeded(bool /*condition*/) { return true; }
  static constexpr bool both(bool one, bool other) { return (one & other) != 0; }
  static constexpr std::int32_t choose(bool condition, std::int32_t yes, std::int32_t no) {
    return no + (yes - no) * static_cast<std::int32_t>(condition);
  }
};
static_assert(Listener<SilentUnchecked>);

/// Calculates `input` by a rule with nobody to listen, without checks where it needs none.
template <typename Rule>
void unheard(const ScheduleInput& input, Amounts amounts, Rule rule) {
  if (fitsInLane(input) && static_cast<double>(amounts.size()) >= input.life + 1.5) {
    SilentUnchecked nobody;
    rule(LaneInput(input), LaneAmounts(amounts.data()), nobody);
  } else {
    Silent nobody;
    rule(input, amounts, nobody);
  }
}

}  // namespace depcalc
