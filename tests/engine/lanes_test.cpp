// Schedules without checks come to the same as schedules with them.
#include "engine/lanes.h"

#include <gtest/gtest.h>

#include <vector>

#include "engine/double_declining_balance.h"
#include "engine/first_year_fraction.h"
#include "engine/straight_line.h"
#include "engine/sum_of_years_digits.h"
#include "tests/support/effort.h"
#include "tests/support/random_assets.h"

namespace depcalc {
namespace {

using test::RandomAssets;
using test::SomeAsset;

/// What a rule leaves behind.
struct Outcome {
  std::vector<Currency> amounts;
  int error = 0;

  friend bool operator==(const Outcome&, const Outcome&) = default;
};

template <typename Rule>
Outcome outcomeOf(const ScheduleInput& input, Rule rule) {
  Outcome outcome;
  try {
    outcome.amounts.resize(amountCount(input.life));
    rule(input, Amounts(outcome.amounts));
  } catch (const RuntimeError& error) {
    outcome.error = error.number();
  }
  return outcome;
}

const auto checked_straight_line = [](const ScheduleInput& input, Amounts amounts) {
  Silent nobody;
  straightLine(input, amounts, nobody);
};
const auto checked_digits = [](const ScheduleInput& input, Amounts amounts) {
  Silent nobody;
  sumOfYearsDigits(input, amounts, nobody);
};
const auto checked_declining_balance = [](const ScheduleInput& input, Amounts amounts) {
  Silent nobody;
  doubleDecliningBalance(input, amounts, nobody);
};

using PlainRule = void (*)(const ScheduleInput&, Amounts);

ScheduleInput inputOf(const SomeAsset& asset, double first_year_fraction) {
  return {.basis = asset.basis,
          .salvage = asset.salvage,
          .life = asset.life,
          .convention = asset.convention,
          .first_year_fraction = first_year_fraction};
}

/// What the first fiscal year takes, and what no first fiscal year takes.
double someFraction(const SomeAsset& asset, int round) {
  if (round % 16 == 0) return round % 160 / 100.0 - 0.1;
  try {
    return firstFiscalYearOf(asset.convention, asset.placed_in_service, asset.fiscal_year_end)
        .fraction;
  } catch (const RuntimeError&) {
    return 0.0;
  }
}

int rounds() {
  return testing_support::Effort{.usual = 100'000, .in_long_run = 10'000'000}.times();
}

TEST(Lane, OfOneAssetComesToWhatEveryCheckComesTo) {
  const std::uint64_t seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomAssets assets(seed);
  int without_checks = 0;
  for (int i = 0; i < rounds(); ++i) {
    const SomeAsset asset = assets.next();
    const ScheduleInput input = inputOf(asset, someFraction(asset, i));
    if (fitsInLane(input)) ++without_checks;
    ASSERT_EQ(outcomeOf(input, PlainRule(straightLine)), outcomeOf(input, checked_straight_line))
        << i;
    ASSERT_EQ(outcomeOf(input, PlainRule(sumOfYearsDigits)), outcomeOf(input, checked_digits)) << i;
    ASSERT_EQ(outcomeOf(input, PlainRule(doubleDecliningBalance)),
              outcomeOf(input, checked_declining_balance))
        << i;
  }
  EXPECT_GT(without_checks, rounds() / 2) << "or the test has looked at nothing";
}

TEST(Lane, HoldsNoAssetThatNeedsAnyCheck) {
  const ScheduleInput usual{.basis = Currency::fromTicks(999'999'999'999),
                            .salvage = Currency::fromTicks(-999'999'999'999),
                            .life = 100.0,
                            .convention = cdepHalfYear,
                            .first_year_fraction = 1.0};
  EXPECT_TRUE(fitsInLane(usual));
  const auto fits = [&usual](auto change) {
    ScheduleInput input = usual;
    change(input);
    return fitsInLane(input);
  };
  EXPECT_FALSE(fits([](auto& input) { input.basis = Currency::fromTicks(1'000'000'000'000); }));
  EXPECT_FALSE(fits([](auto& input) { input.basis = Currency::fromTicks(-1'000'000'000'000); }));
  EXPECT_FALSE(fits([](auto& input) { input.salvage = Currency::fromTicks(INT64_MIN); }));
  EXPECT_FALSE(fits([](auto& input) { input.life = std::nextafter(1.0, 0.0); }));
  EXPECT_FALSE(fits([](auto& input) { input.life = std::nextafter(100.0, 101.0); }));
  EXPECT_FALSE(fits([](auto& input) { input.life = std::nan(""); }));
  EXPECT_FALSE(fits([](auto& input) { input.first_year_fraction = std::nan(""); }));
  EXPECT_FALSE(fits([](auto& input) { input.first_year_fraction = -0.01; }));
  EXPECT_FALSE(fits([](auto& input) { input.first_year_fraction = 1.01; }));
}

/// Products that lie as near to half way between two ticks as they can.
TEST(Lane, MultipliesMoneyAsItIsDividedMultipliedAndRounded) {
  using Money = LaneMoney<double>;
  std::mt19937_64 random(7);
  for (int i = 0; i < 1'000'000; ++i) {
    const double life = 1.0 + static_cast<double>(random() % 9'900) / 100.0;
    const double rate = 2.0 / life;
    const auto about = static_cast<double>(random() % 1'000'000'000'000);
    const double half_way = std::floor(about * rate) + 0.5;
    for (int beside = -1; beside <= 1; ++beside) {
      const auto ticks = static_cast<std::int64_t>(half_way / rate) + beside;
      const Currency amount = Currency::fromTicks(ticks);
      ASSERT_EQ(Currency(Money(amount).times(rate)), amount.times(rate)) << ticks << " × " << rate;
    }
  }
}

}  // namespace
}  // namespace depcalc
