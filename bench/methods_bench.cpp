// How many assets a second the four methods are calculated for, on one core.
#include <benchmark/benchmark.h>

#include <ctime>
#include <memory>
#include <random>
#include <span>
#include <vector>

#include "bench/bare_methods.h"
#include "engine/calculate_dep.h"
#include "engine/method_batch.h"

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

/// The assets and all that is needed to calculate them again and again.
class Work {
 public:
  explicit Work(const benchmark::State& state) : assets_(someAssets(state)) {
    Random random(1);
    for (const auto& asset : assets_) {
      bare_.push_back(bare(*asset, random));
      records_.push_back(asset.get());
      scheduled_.push_back(asset->scheduled());
    }
  }

  /// One record after the other.
  void one() {
    for (const auto& asset : assets_) {
      asset->StraightLine(results_.straight_line);
      asset->SumofYearsDigits(results_.sum_of_years_digits);
      asset->DoubleDecliningBalance(results_.double_declining_balance);
      benchmark::DoNotOptimize(results_.straight_line.data());
      benchmark::DoNotOptimize(results_.sum_of_years_digits.data());
      benchmark::DoNotOptimize(results_.double_declining_balance.data());
      benchmark::DoNotOptimize(asset->UnitsofProduction());
      benchmark::ClobberMemory();
    }
  }

  /// Side by side, the amounts alone.
  void many() {
    for (std::size_t i = 0; i < asset_count; i += MethodBatch::most) {
      schedules_.calculate(std::span(scheduled_).subspan(i, MethodBatch::most));
      benchmark::DoNotOptimize(schedules_.of(0));
      benchmark::ClobberMemory();
    }
  }

  /// Side by side, and given to the records.
  void manyRecords() {
    for (std::size_t i = 0; i < asset_count; i += MethodBatch::most) {
      methods_.calculate(std::span(records_).subspan(i, MethodBatch::most));
      for (std::size_t j = 0; j < MethodBatch::most; ++j) methods_.giveAllMethods(j, results_);
      benchmark::DoNotOptimize(results_);
      benchmark::ClobberMemory();
    }
  }

  /// The arithmetic alone.
  void bareLoop() {
    for (const BareAsset& asset : bare_) {
      bareMethods(asset, bare_schedules_);
      benchmark::DoNotOptimize(bare_schedules_);
      benchmark::ClobberMemory();
    }
  }

 private:
  std::vector<CalculateDepPtr> assets_;
  std::vector<CalculateDep*> records_;
  std::vector<ScheduledAsset> scheduled_;
  std::vector<BareAsset> bare_;
  MethodResults results_;
  ScheduleBatch schedules_;
  MethodBatch methods_;
  BareSchedules bare_schedules_{};
};
static_assert(asset_count % MethodBatch::most == 0);

template <void (Work::*calculate)()>
void assets(benchmark::State& state) {
  Work work(state);
  while (state.KeepRunning()) (work.*calculate)();
  countAssets(state);
}

double processorTime() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// Seconds of `rounds` times `calculate`.
double timeOf(Work& work, void (Work::*calculate)()) {
  constexpr int rounds = 50;
  const double begin = processorTime();
  for (int i = 0; i < rounds; ++i) (work.*calculate)();
  return processorTime() - begin;
}

/// How many assets are calculated while the bare loop calculates one: each in its turn, so that
/// whatever else slows the machine down slows all of them down.
void besideTheBareLoop(benchmark::State& state) {
  Work work(state);
  double bare = 0;
  double one = 0;
  double many = 0;
  double many_records = 0;
  while (state.KeepRunning()) {
    bare += timeOf(work, &Work::bareLoop);
    one += timeOf(work, &Work::one);
    many += timeOf(work, &Work::many);
    many_records += timeOf(work, &Work::manyRecords);
  }
  state.counters["one"] = bare / one;
  state.counters["many"] = bare / many;
  state.counters["many_records"] = bare / many_records;
}

// Useful lives of 5 years, and of 3 to 10.
void lives(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgNames({"from", "to"})->Args({5, 5})->Args({3, 10});
}
BENCHMARK(assets<&Work::one>)->Name("fourMethods")->Apply(lives);
BENCHMARK(assets<&Work::many>)->Name("manyAtOnce")->Apply(lives);
BENCHMARK(assets<&Work::manyRecords>)->Name("manyRecordsAtOnce")->Apply(lives);
BENCHMARK(assets<&Work::bareLoop>)->Name("bareLoop")->Apply(lives);
BENCHMARK(besideTheBareLoop)->Apply(lives);

}  // namespace
}  // namespace depcalc::bench

BENCHMARK_MAIN();
