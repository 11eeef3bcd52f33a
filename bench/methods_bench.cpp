// How many assets a second the four methods are calculated for, on one core.
#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

#include "bench/bare_methods.h"
#include "engine/calculate_dep.h"

namespace depcalc::bench {
namespace {

constexpr std::size_t asset_count = 1024;

using Random = std::mt19937;

int between(Random& random, int least, int most) {
  return least + static_cast<int>(random() % static_cast<unsigned>(most - least + 1));
}

CalculateDepPtr someAsset(Random& random, int life) {
  auto asset = std::make_shared<CalculateDep>();
  const int basis = between(random, 1'000, 100'000);
  asset->AssetBasis(Currency::fromTicks(basis * Currency::ticks_per_unit));
  asset->AssetSalvage(Currency::fromTicks(basis / 8 * Currency::ticks_per_unit));
  asset->DepRecovery(life);
  asset->DepConvention(std::to_string(between(random, 0, 4)));
  asset->AssetStartDate(
      Date::strict(between(random, 1995, 2024), between(random, 1, 12), between(random, 1, 28)));
  asset->FYEnd(Date::strict(2000, 12, 31));
  asset->AssetProdCap(std::to_string(between(random, 1'000, 100'000)));
  return asset;
}

std::vector<CalculateDepPtr> someAssets(const benchmark::State& state) {
  Random random(1);
  std::vector<CalculateDepPtr> assets;
  for (std::size_t i = 0; i < asset_count; ++i) {
    const auto shortest = static_cast<int>(state.range(0));
    assets.push_back(
        someAsset(random, between(random, shortest, static_cast<int>(state.range(1)))));
  }
  return assets;
}

BareAsset bare(const CalculateDep& asset, Random& random) {
  const bool full_year = asset.DepConvention() == "0";
  return {.basis = asset.AssetBasis().ticks(),
          .salvage = asset.AssetSalvage().ticks(),
          .life = static_cast<int>(asset.DepRecovery()),
          .full_year = full_year,
          .fraction = full_year ? 1.0 : between(random, 1, 12) / 12.0,
          .capacity = 1'000};
}

void countAssets(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(asset_count));
}

void fourMethods(benchmark::State& state) {
  const auto assets = someAssets(state);
  std::vector<Currency> straight_line;
  std::vector<Currency> sum_of_years_digits;
  std::vector<Currency> double_declining_balance;
  while (state.KeepRunning()) {
    for (const auto& asset : assets) {
      asset->StraightLine(straight_line);
      asset->SumofYearsDigits(sum_of_years_digits);
      asset->DoubleDecliningBalance(double_declining_balance);
      benchmark::DoNotOptimize(straight_line.data());
      benchmark::DoNotOptimize(sum_of_years_digits.data());
      benchmark::DoNotOptimize(double_declining_balance.data());
      benchmark::DoNotOptimize(asset->UnitsofProduction());
      benchmark::ClobberMemory();
    }
  }
  countAssets(state);
}

void bareLoop(benchmark::State& state) {
  Random random(1);
  std::vector<BareAsset> assets;
  for (const auto& asset : someAssets(state)) assets.push_back(bare(*asset, random));
  BareSchedules schedules;
  while (state.KeepRunning()) {
    for (const BareAsset& asset : assets) {
      bareMethods(asset, schedules);
      benchmark::DoNotOptimize(schedules);
      benchmark::ClobberMemory();
    }
  }
  countAssets(state);
}

// Useful lives of 5 years, and of 3 to 10.
BENCHMARK(fourMethods)->ArgNames({"from", "to"})->Args({5, 5})->Args({3, 10});
BENCHMARK(bareLoop)->ArgNames({"from", "to"})->Args({5, 5})->Args({3, 10});

}  // namespace
}  // namespace depcalc::bench

BENCHMARK_MAIN();
