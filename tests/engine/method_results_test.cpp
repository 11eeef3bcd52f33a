// The four calculations at once, and the choice of one.
#include "engine/method_results.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/convention.h"
#include "engine/schedule_span.h"
#include "tests/support/error_of.h"
#include "tests/support/reports.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

Currency money(double amount) { return Currency::fromDouble(amount); }

/// 10,000 less 1,000 of salvage over three years from July 2023, years ending in December.
struct MethodResultsTest : ::testing::Test {
  MethodResultsTest() {
    asset.AssetBasis(money(10'000));
    asset.AssetSalvage(money(1'000));
    asset.DepRecovery(3);
    asset.AssetStartDate(Date::strict(2023, 7, 1));
    asset.FYEnd(Date::strict(2023, 12, 31));
    asset.AssetProdCap("4,500");
  }
  std::vector<Currency> items() {
    std::vector<Currency> found;
    for (std::int16_t i = 0; i < 4; ++i) found.push_back(asset.DepItem(i));
    return found;
  }

  CalculateDep asset;
  MethodResults results;
};

TEST_F(MethodResultsTest, HasEveryMethodsAmounts) {
  calculateAllMethods(asset, results);
  EXPECT_THAT(results.straight_line,
              ElementsAre(money(3'000), money(3'000), money(3'000), money(0), money(0)));
  EXPECT_THAT(results.sum_of_years_digits,
              ElementsAre(money(4'500), money(3'000), money(1'500), money(0), money(0)));
  EXPECT_THAT(results.double_declining_balance,
              ElementsAre(money(6'666.67), money(2'222.22), money(111.11), money(0), money(0)));
  EXPECT_EQ(results.rate, money(2));
}

TEST_F(MethodResultsTest, StartsWithTheStraightLineWhoseShareTheOthersUse) {
  asset.DepConvention("1");
  calculateAllMethods(asset, results);
  EXPECT_EQ(results.sum_of_years_digits[0], money(2'250)) << "half of the first year's 4,500";
  EXPECT_EQ(results.double_declining_balance[0], money(3'333.33));
}

TEST_F(MethodResultsTest, OfALifeOfNoYearsAreEmptyButForTheRate) {
  Reports reports;
  asset.DepRecovery(0);
  results.straight_line = {money(7)};
  calculateAllMethods(asset, results);
  EXPECT_THAT(results.straight_line, IsEmpty());
  EXPECT_THAT(results.sum_of_years_digits, IsEmpty());
  EXPECT_THAT(results.double_declining_balance, IsEmpty());
  EXPECT_EQ(results.rate, money(2));
  EXPECT_EQ(reports.all().size(), 3U);
}

TEST_F(MethodResultsTest, TheChosenMethodsAmountsBecomeTheAssets) {
  calculateAllMethods(asset, results);
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    const auto& amounts = results.*scheduled.amounts;
    chooseMethod(asset, scheduled.method.code, results);
    EXPECT_EQ(asset.DepMethod(), scheduled.method.code);
    EXPECT_THAT(items(), ElementsAre(amounts[0], amounts[1], amounts[2], money(0)))
        << scheduled.method.code;
  }
}

TEST_F(MethodResultsTest, APartialFirstYearHasOneAmountMore) {
  asset.DepConvention("1");
  calculateAllMethods(asset, results);
  chooseMethod(asset, method_straight_line, results);
  EXPECT_THAT(items(), ElementsAre(money(1'500), money(3'000), money(3'000), money(1'500)));
}

TEST_F(MethodResultsTest, UnitsOfProductionWriteTheRateAndNothingElse) {
  calculateAllMethods(asset, results);
  chooseMethod(asset, method_sum_of_years_digits, results);
  chooseMethod(asset, method_units_of_production, results);
  EXPECT_EQ(asset.DepMethod(), "UOP");
  EXPECT_THAT(items(), ElementsAre(money(2), money(3'000), money(1'500), money(0)));
}

TEST_F(MethodResultsTest, AnUnknownMethodChangesNothing) {
  calculateAllMethods(asset, results);
  chooseMethod(asset, method_straight_line, results);
  for (const char* method : {"", "sl", "uop", "MACRS"}) {
    chooseMethod(asset, method, results);
    EXPECT_EQ(asset.DepMethod(), "SL") << method;
    EXPECT_EQ(asset.DepItem(1), money(3'000)) << method;
  }
}

TEST_F(MethodResultsTest, AMissingAmountIsAnErrorBehindTheMethod) {
  EXPECT_EQ(errorOf([&] { chooseMethod(asset, method_straight_line, results); }), 9);
  EXPECT_EQ(asset.DepMethod(), "SL");
}

TEST(Methods, CountAsUnitsOfProductionInTwoSpellingsAndKeepARateInOne) {
  for (const char* method : {"UOP", "uop", "Uop", "SL", ""}) {
    const std::string text = method;
    EXPECT_EQ(isUnitsOfProduction(text), text == "UOP") << text;
    EXPECT_EQ(countsAsUnitsOfProduction(text), text == "UOP" || text == "uop") << text;
  }
}

TEST(ScheduleSpan, IsTheLifeAndAYearMoreWhereTheFirstIsPartial) {
  const struct {
    double life;
    const char* convention;
    int years;
    int last;
  } cases[] = {{5, "0", 5, 4},   {5, "1", 6, 5},   {5, "4", 6, 5},   {1, "0", 1, 0},
               {0, "0", 0, -1},  {0, "3", 1, 0},   {2.5, "0", 2, 2}, {3.5, "0", 4, 2},
               {2.5, "2", 4, 2}, {1.5, "2", 2, 2}, {5, "7", 6, 5}};
  for (const auto& c : cases) {
    CalculateDep asset;
    asset.DepRecovery(c.life);
    asset.DepConvention(c.convention);
    EXPECT_EQ(fiscalYearsSpanned(asset), c.years) << c.life << ' ' << c.convention;
    EXPECT_EQ(lastFiscalYearSpanned(asset), c.last) << c.life << ' ' << c.convention;
  }
  CalculateDep endless;
  endless.DepRecovery(40'000);
  EXPECT_EQ(errorOf([&] { fiscalYearsSpanned(endless); }), 6);
}

}  // namespace
}  // namespace depcalc
