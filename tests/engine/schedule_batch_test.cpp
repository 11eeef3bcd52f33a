// Many assets calculated at once come to what each comes to alone.
#include "engine/schedule_batch.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "engine/calculate_dep.h"
#include "engine/method_batch.h"
#include "engine/method_results.h"
#include "tests/support/effort.h"
#include "tests/support/random_records.h"
#include "tests/support/reports.h"

namespace depcalc {
namespace {

using test::RandomAssets;
using test::SomeAsset;

ScheduledAsset scheduledOf(const SomeAsset& asset) {
  return {.placed_in_service = asset.placed_in_service,
          .fiscal_year_end = asset.fiscal_year_end,
          .basis = asset.basis,
          .salvage = asset.salvage,
          .life = asset.life,
          .convention = asset.convention,
          .capacity = asset.capacity};
}

/// Whatever there is to be seen of a calculation.
struct Seen {
  int error = 0;
  MethodResults results;
  std::vector<Currency> items;
  std::vector<std::string> reports;
  std::vector<Currency> digits_again;  ///< by the share of the first fiscal year that it keeps
};

template <typename Calculate>
Seen seenOf(CalculateDep& record, Calculate calculate) {
  Seen seen;
  const Reports reports;
  try {
    calculate(seen.results);
    seen.items = record.depItems();
    record.SumofYearsDigits(seen.digits_again);
  } catch (const RuntimeError& error) {
    seen.error = error.number();
  }
  seen.reports = reports.all();
  return seen;
}

void expectSame(const Seen& one, const Seen& other) {
  ASSERT_EQ(one.error, other.error);
  ASSERT_EQ(one.results.straight_line, other.results.straight_line);
  ASSERT_EQ(one.results.sum_of_years_digits, other.results.sum_of_years_digits);
  ASSERT_EQ(one.results.double_declining_balance, other.results.double_declining_balance);
  ASSERT_EQ(one.results.rate, other.results.rate);
  ASSERT_EQ(one.items, other.items);
  ASSERT_EQ(one.reports, other.reports);
  ASSERT_EQ(one.digits_again, other.digits_again);
}

std::vector<LaneWidth> widths() {
  std::vector<LaneWidth> those{LaneWidth::two};
  if (widestLanes() != LaneWidth::two) those.push_back(widestLanes());
  return those;
}

void expectAmounts(std::span<const Currency> amounts, const std::vector<Currency>& expected) {
  ASSERT_EQ(std::vector<Currency>(amounts.begin(), amounts.end()), expected);
}

/// How many of `assets` the batch calculates.
std::size_t expectBatchOf(const std::vector<SomeAsset>& assets, ScheduleBatch& batch) {
  std::vector<ScheduledAsset> inputs;
  for (const SomeAsset& asset : assets) inputs.push_back(scheduledOf(asset));
  batch.calculate(inputs);
  std::size_t calculated = 0;
  for (std::size_t i = 0; i < assets.size(); ++i) {
    const auto schedules = batch.of(i);
    if (!schedules) continue;
    ++calculated;
    CalculateDep record;
    fill(record, assets[i]);
    const Seen alone =
        seenOf(record, [&](MethodResults& results) { calculateAllMethods(record, results); });
    EXPECT_EQ(alone.error, 0);
    expectAmounts(schedules->straight_line, alone.results.straight_line);
    expectAmounts(schedules->sum_of_years_digits, alone.results.sum_of_years_digits);
    expectAmounts(schedules->double_declining_balance, alone.results.double_declining_balance);
    EXPECT_EQ(schedules->rate, alone.results.rate);
  }
  return calculated;
}

TEST(ScheduleBatch, GivesEveryDigitAtEveryWidthAndOfAnyNumberOfAssets) {
  const std::uint64_t seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  const std::size_t most = testing_support::inLongRun() ? 10'000'000 : 60'000;
  for (const LaneWidth width : widths()) {
    SCOPED_TRACE("lanes: " + std::to_string(static_cast<int>(width)));
    RandomAssets assets(seed);
    ScheduleBatch batch(width);
    std::size_t calculated = 0;
    std::size_t count = 0;
    while (count < most) {
      std::vector<SomeAsset> some;
      for (std::size_t i = random() % 80; i > 0; --i) some.push_back(assets.next());
      calculated += expectBatchOf(some, batch);
      count += some.size();
      if (::testing::Test::HasFailure()) return;
    }
    EXPECT_GT(calculated, most / 2) << "or the test has looked at nothing";
  }
}

TEST(ScheduleBatch, CalculatesWhateverTheFormAcceptsByItself) {
  std::vector<ScheduledAsset> inputs;
  for (const double life : {1.0, 1.5, 7.0, 49.9, 50.0}) {
    for (std::int32_t convention = 0; convention <= 4; ++convention) {
      inputs.push_back({.placed_in_service = Date::strict(2024, 2, 29),
                        .fiscal_year_end = Date::strict(2023, 6, 30),
                        .basis = Currency::fromTicks(99'999'999'999),
                        .salvage = Currency::fromTicks(1),
                        .life = life,
                        .convention = convention,
                        .capacity = 1e12});
    }
  }
  ScheduleBatch batch;
  batch.calculate(inputs);
  for (std::size_t i = 0; i < inputs.size(); ++i) EXPECT_TRUE(batch.of(i).has_value()) << i;
}

TEST(MethodBatch, LeavesRecordsResultsReportsAndErrorsAsOneByOne) {
  const std::uint64_t seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomAssets assets(seed);
  std::mt19937_64 random(seed);
  MethodBatch batch;
  for (int round = 0; round < 400; ++round) {
    std::vector<std::unique_ptr<CalculateDep>> together;
    std::vector<std::unique_ptr<CalculateDep>> alone;
    std::vector<CalculateDep*> those;
    for (std::size_t i = random() % MethodBatch::most; i > 0; --i) {
      const SomeAsset asset = assets.next();
      for (auto* records : {&together, &alone}) {
        fill(*records->emplace_back(std::make_unique<CalculateDep>()), asset);
      }
      those.push_back(together.back().get());
    }
    batch.calculate(those);
    for (std::size_t i = 0; i < those.size(); ++i) {
      if (random() % 8 == 0) {  // changed after it was calculated ahead
        for (auto* record : {together[i].get(), alone[i].get()}) record->DepRecovery(7);
      }
      expectSame(
          seenOf(*together[i], [&](MethodResults& results) { batch.giveAllMethods(i, results); }),
          seenOf(*alone[i],
                 [&](MethodResults& results) { calculateAllMethods(*alone[i], results); }));
      if (::testing::Test::HasFailure()) return;
    }
  }
}

TEST(MethodBatch, GivesEachAssetTheAmountsOfItsOwnMethod) {
  std::vector<std::unique_ptr<CalculateDep>> records;
  std::vector<CalculateDep*> those;
  for (const char* method : {"SL", "SYD", "DDB", "UOP", ""}) {
    auto& record = *records.emplace_back(std::make_unique<CalculateDep>());
    record.AssetBasis(Currency::fromDouble(10'000));
    record.DepRecovery(4);
    record.AssetStartDate(Date::strict(2024, 1, 1));
    record.FYEnd(Date::strict(2024, 12, 31));
    record.AssetProdCap("4000");
    record.DepMethod(method);
    those.push_back(&record);
  }
  MethodBatch batch;
  batch.calculate(those);
  for (std::size_t i = 0; i < those.size(); ++i) batch.giveChosen(i);
  EXPECT_EQ(records[0]->DepItem(0), Currency::fromDouble(2'500));
  EXPECT_EQ(records[1]->DepItem(0), Currency::fromDouble(4'000));
  EXPECT_EQ(records[2]->DepItem(0), Currency::fromDouble(5'000));
  EXPECT_EQ(records[3]->DepItem(0), Currency::fromDouble(2.5));
  EXPECT_TRUE(records[4]->depItems().empty());
}

}  // namespace
}  // namespace depcalc
