// Every amount's expressions, worked out anew: of the vectors, and of 10,000 random assets (fewer
// under the sanitizers) with disposals and units, by every method, in every year.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <tuple>

#include "engine/convention.h"
#include "engine/first_fiscal_year.h"
#include "engine/method_results.h"
#include "explain/explanation.h"
#include "reports/explaining/saved_explanation.h"
#include "tests/explain/evaluator.h"
#include "tests/support/effort.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

/// What is wrong with the steps of an explanation; empty where each comes to its result and the
/// last one to the amount.
std::string faultOf(const Explanation& explanation) {
  for (const ExplainedStep& step : explanation.steps) {
    const auto value = evaluated(step.expression);
    const std::string where = step.words + ": " + step.expression + " = " + step.result;
    if (step.words.empty()) return "no words: " + where;
    if (!value) return "not an expression: " + where;
    if (*value != numberFromText(step.result)) return where + ", not " + numberToText(*value);
  }
  if (explanation.steps.empty()) return "no steps";
  const std::string& last = explanation.steps.back().result;
  return Currency::fromText(last) == explanation.amount ? "" : "ends with " + last;
}

void expectSound(const std::vector<Explanation>& all, const std::string& of) {
  Currency taken;
  for (const Explanation& one : all) {
    EXPECT_EQ(faultOf(one), "") << of << ", " << titleOf(one);
    if (one.fiscal_year) taken += one.amount;
    EXPECT_EQ(one.taken, taken) << of << ", " << titleOf(one);
  }
}

// --- The vectors ---------------------------------------------------------------------------------

using Row = std::vector<std::string>;

std::vector<Row> rowsOf(const std::string& name) {
  std::ifstream file(std::string(DEPCALC_VECTORS) + '/' + name);
  std::vector<Row> rows;
  for (std::string line; std::getline(file, line);) {
    Row& row = rows.emplace_back();
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, ',');) row.push_back(field);
  }
  if (!rows.empty()) rows.erase(rows.begin());
  return rows;
}

Date isoDate(const std::string& text) { return Date::fromText(text, Date::strict(2024, 1, 1)); }

/// id, name, serial, department, placed_in_service, fiscal_year_end, life, convention, basis,
/// salvage, capacity.
ExplainedAsset assetOf(const Row& row) {
  return {.placed_in_service = isoDate(row[4]),
          .fiscal_year_end = isoDate("2024-" + row[5]),
          .basis = Currency::fromText(row[8]),
          .salvage = Currency::fromText(row[9]),
          .life = numberFromText(row[6]),
          .convention = row[7].front() - '0',
          .capacity = row.size() > 10 ? numberFromText(row[10]) : 0.0,
          .disposed = {},
          .units = {}};
}

TEST(EveryAmount, OfTheVectorsIsWhatItsStepsComeTo) {
  using Key = std::tuple<std::string, std::string, std::string>;
  std::map<Key, Currency> expected;
  for (const Row& row : rowsOf("schedules-expected.csv")) {
    expected[{row[0], row[1], row[2]}] = Currency::fromText(row[3]);
  }
  std::size_t explained = 0;
  const std::vector<Row> assets = rowsOf("schedules-input.csv");
  ASSERT_EQ(assets.size(), 300);
  for (const Row& row : assets) {
    for (const Method& method : methods) {
      const auto all = explain(assetOf(row), method.code);
      expectSound(all, row[0]);
      for (const Explanation& one : all) {
        const std::string year = one.fiscal_year ? std::to_string(*one.fiscal_year) : "";
        const auto amount = expected.find({row[0], std::string(method.code), year});
        ASSERT_NE(amount, expected.end()) << row[0] << ' ' << titleOf(one);
        EXPECT_EQ(one.amount, amount->second) << row[0] << ' ' << titleOf(one);
        ++explained;
      }
    }
  }
  EXPECT_EQ(explained, expected.size());
}

// --- Random assets -------------------------------------------------------------------------------

class RandomAssets {
 public:
  explicit RandomAssets(unsigned seed) : random_(seed) {}

  SavedAsset next() {
    SavedAsset asset;
    asset.placed_in_service = Date::carrying(between(1970, 2060), between(1, 12), between(1, 31));
    asset.fiscal_year_end = Date::carrying(between(2000, 2024), between(1, 12), between(1, 31));
    asset.life = oneIn(10) ? between(2, 100) / 2.0 : between(1, 50);
    asset.convention = std::to_string(oneIn(50) ? between(-2, 9) : between(0, 4));
    asset.basis = Currency::fromTicks(money());
    asset.salvage = Currency::fromTicks(oneIn(3) ? 0 : money() % (asset.basis.ticks() + 1));
    if (oneIn(50)) std::swap(asset.basis, asset.salvage);
    asset.capacity = std::to_string(oneIn(4) ? 0 : between(1, 1'000'000));
    if (oneIn(3)) asset.disposed = asset.placed_in_service.plusDays(between(0, 12'000));
    for (int i = between(0, 5); i > 0; --i) {
      asset.units[between(1970, 2080)] = oneIn(2) ? between(0, 1'000'000) : between(0, 9'999) / 8.0;
    }
    return asset;
  }

 private:
  int between(int least, int most) {
    return least + static_cast<int>(random_() % static_cast<unsigned>(most - least + 1));
  }
  bool oneIn(int count) { return between(1, count) == 1; }
  /// Cents, or ten-thousandths; small ones often.
  std::int64_t money() {
    const std::int64_t ticks =
        std::int64_t{1} + static_cast<std::int64_t>(random_() % 99'999'999'999);
    const std::int64_t size = oneIn(4) ? ticks % 100'000 + 1 : ticks;
    return oneIn(5) ? size : (size + 99) / 100 * 100;
  }

  std::mt19937_64 random_;
};

/// The amounts as the record's own calculation has them.
void calculate(SavedAsset& asset, std::string_view method) {
  CalculateDep record;
  record.AssetStartDate(asset.placed_in_service);
  record.FYEnd(asset.fiscal_year_end);
  record.AssetBasis(asset.basis);
  record.AssetSalvage(asset.salvage);
  record.AssetProdCap(asset.capacity);
  record.DepRecovery(asset.life);
  record.DepConvention(asset.convention);
  MethodResults results;
  calculateAllMethods(record, results);
  asset.method = method;
  asset.amounts = {results.rate};
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    if (scheduled.method.code == method) asset.amounts = results.*scheduled.amounts;
  }
}

std::string described(const SavedAsset& asset) {
  return asset.placed_in_service.toIsoText() + " FYE " + asset.fiscal_year_end.toIsoText() +
         " life " + numberToText(asset.life) + " convention " + asset.convention + " basis " +
         asset.basis.toText() + " salvage " + asset.salvage.toText() + " capacity " +
         asset.capacity + " disposed " + asset.disposed.toIsoText();
}

constexpr unsigned seed = 17;

/// No year that a report has an amount for goes unexplained, and none says another amount.
void expectWhatReportsHave(const ReportAsset& asset, const std::vector<Explanation>& all,
                           const std::string& of) {
  Currency sum;
  for (const Explanation& one : all) {
    EXPECT_FALSE(one.saved) << of << ", " << titleOf(one) << ": " << one.saved->toText();
    if (one.fiscal_year) sum += one.amount;
  }
  EXPECT_EQ(sum, asset.allAmounts()) << of;
}

TEST(EveryAmount, OfRandomAssetsIsWhatItsStepsComeToAndWhatReportsHave) {
  RandomAssets assets(seed);
  std::size_t explained = 0;
  const auto count = static_cast<std::size_t>(testing_support::fewerIfSanitized(10'000));
  for (std::size_t i = 0; i < count && !HasFailure(); ++i) {
    SavedAsset saved = assets.next();
    for (const Method& method : methods) {
      calculate(saved, method.code);
      const ReportAsset asset(saved);
      const std::string of =
          "seed " + std::to_string(seed) + ", asset " + std::to_string(i) + ": " + described(saved);
      const auto all = explainSaved(asset, method.code, AmountsShown::in_reports);
      if (saved.amounts.empty()) continue;  // it cannot be calculated
      ASSERT_TRUE(all) << of;
      expectSound(*all, of);
      expectWhatReportsHave(asset, *all, of);
      explained += all->size();
    }
  }
  EXPECT_GT(explained, 50 * count);
}

TEST(EveryAmount, OfTheRegisterIsThatOfTheRecord) {
  RandomAssets assets(seed + 1);
  for (int i = 0; i < 500 && !HasFailure(); ++i) {
    SavedAsset saved = assets.next();
    for (const ScheduledMethod& scheduled : scheduled_methods) {
      calculate(saved, scheduled.method.code);
      if (saved.amounts.empty()) continue;
      const ReportAsset asset(saved);
      const auto all = explainSaved(asset, scheduled.method.code, AmountsShown::in_register);
      ASSERT_TRUE(all) << described(saved);
      Currency sum;
      for (const Explanation& one : *all) {
        EXPECT_FALSE(one.saved) << described(saved) << titleOf(one);
        sum += one.amount;
      }
      Currency record;
      for (const Currency amount : saved.amounts) record += amount;
      EXPECT_EQ(sum, record) << described(saved);
    }
  }
}

}  // namespace
}  // namespace depcalc
