// The three schedules: textbook figures, edge cases, properties.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "engine/calculate_dep.h"
#include "tests/support/reports.h"

namespace depcalc {
namespace {

Currency money(const std::string& text) { return Currency::fromText(text); }

struct Asset {
  const char* basis;
  const char* salvage;
  double life;
  const char* convention;
  Date placed = Date::strict(2023, 1, 1);
  Date year_end = Date::strict(2023, 12, 31);
};

void fill(CalculateDep& record, const Asset& asset) {
  record.AssetBasis(money(asset.basis));
  record.AssetSalvage(money(asset.salvage));
  record.DepRecovery(asset.life);
  record.DepConvention(asset.convention);
  record.AssetStartDate(asset.placed);
  record.FYEnd(asset.year_end);
}

using Method = std::vector<Currency> (CalculateDep::*)();
constexpr Method straight_line = &CalculateDep::StraightLine;
constexpr Method sum_of_digits = &CalculateDep::SumofYearsDigits;
constexpr Method declining = &CalculateDep::DoubleDecliningBalance;

/// The amounts as texts, one per fiscal year, without the zero years at the end.
std::string schedule(const Asset& asset, Method method) {
  CalculateDep record;
  fill(record, asset);
  record.StraightLine();
  auto amounts = (record.*method)();
  while (!amounts.empty() && amounts.back() == Currency()) amounts.pop_back();
  std::string text;
  for (const Currency amount : amounts) text += (text.empty() ? "" : "; ") + amount.toText();
  return text;
}

// Published figures. Each test names where they stand.

TEST(PublishedFigures, SumOfYearsDigitsOf40000Over5Years_IntermediateAccountingTextbooks) {
  EXPECT_EQ(schedule({"50000", "10000", 5, "0"}, sum_of_digits),
            "13333.33; 10666.67; 8000; 5333.33; 2666.67");
}

TEST(PublishedFigures, StraightLineHalfYearOf12000Over6Years_IntermediateAccountingTextbooks) {
  EXPECT_EQ(schedule({"14000", "2000", 6, "1"}, straight_line),
            "1000; 2000; 2000; 2000; 2000; 2000; 1000");
}

TEST(PublishedFigures, StraightLineActualDaysFrom28January2015_AustralianPrimeCostExample) {
  EXPECT_EQ(schedule({"5000", "0", 5, "4", Date::strict(2015, 1, 28), Date::strict(2015, 6, 30)},
                     straight_line),
            "421.92; 1000; 1000; 1000; 1000; 578.08");
}

// A delivery truck of 13,000 with 1,000 salvage over 5 years is the worked example of several
// editions of Weygandt, Kimmel and Kieso, Accounting Principles, for all methods.
TEST(PublishedFigures, StraightLineOf13000_WeygandtKimmelKieso) {
  EXPECT_EQ(schedule({"13000", "1000", 5, "0"}, straight_line), "2400; 2400; 2400; 2400; 2400");
}

TEST(PublishedFigures, DecliningBalanceOf13000_WeygandtKimmelKieso) {
  // The textbook plugs 685 into the fifth year so that the asset ends at salvage; the method
  // itself takes 2/5 of 1,684.80, which is 673.92, and that would leave 1,010.88.
  EXPECT_EQ(schedule({"13000", "1000", 5, "0"}, declining), "5200; 3120; 1872; 1123.2; 673.92");
}

TEST(PublishedFigures, SumOfYearsDigitsOf13000_WeygandtKimmelKieso) {
  EXPECT_EQ(schedule({"13000", "1000", 5, "0"}, sum_of_digits), "4000; 3200; 2400; 1600; 800");
}

TEST(PublishedFigures, UnitsOfProductionOf13000Over100000Miles_WeygandtKimmelKieso) {
  CalculateDep record;
  fill(record, {"13000", "1000", 5, "0"});
  record.AssetProdCap("100,000");
  record.StraightLine();
  EXPECT_EQ(record.UnitsofProduction(), money("0.12"));
}

// A machine of 500,000 with 50,000 salvage over 5 years: Kieso, Weygandt and Warfield,
// Intermediate Accounting, the crane example.
TEST(PublishedFigures, SumOfYearsDigitsOf450000_KiesoWeygandtWarfield) {
  EXPECT_EQ(schedule({"500000", "50000", 5, "0"}, sum_of_digits),
            "150000; 120000; 90000; 60000; 30000");
}

TEST(PublishedFigures, DecliningBalanceOf500000StopsAtSalvage_KiesoWeygandtWarfield) {
  EXPECT_EQ(schedule({"500000", "50000", 5, "0"}, declining),
            "200000; 120000; 72000; 43200; 14800");
}

TEST(PublishedFigures, StraightLineOf450000_KiesoWeygandtWarfield) {
  EXPECT_EQ(schedule({"500000", "50000", 5, "0"}, straight_line),
            "90000; 90000; 90000; 90000; 90000");
}

// Edge cases.

TEST(StraightLineTest, PutsTheRoundingRestOnTheLastYear) {
  EXPECT_EQ(schedule({"1000", "0", 3, "0"}, straight_line), "333.33; 333.33; 333.34");
  EXPECT_EQ(schedule({"1000", "0", 3, "1"}, straight_line), "166.67; 333.33; 333.33; 166.67");
  EXPECT_EQ(schedule({"100", "0", 7, "1"}, straight_line),
            "7.14; 14.29; 14.29; 14.29; 14.29; 14.29; 14.29; 7.12");
}

TEST(StraightLineTest, KeepsFourDecimalsOfTheBasisInTheLastYear) {
  EXPECT_EQ(schedule({"10.0001", "0", 2, "0"}, straight_line), "5; 5.0001");
}

TEST(StraightLineTest, DoesNotRoundTheLastShareToCentsBeforeLookingWhetherItIsNothing) {
  // A cent over fifty years: 0.0002 of it fall to the year after the last, so the rest does too.
  CalculateDep record;
  fill(record, {"100", "99.99", 50, "3", Date::strict(2020, 9, 29), Date::strict(2020, 9, 30)});
  const auto amounts = record.StraightLine();
  EXPECT_EQ(amounts[49], Currency());
  EXPECT_EQ(amounts[50], money("0.01"));
}

TEST(StraightLineTest, WithAFullFirstYearOfAPartialConventionLeavesTheYearAfterEmpty) {
  // Full Month from the first month of the fiscal year: a share of 1.
  EXPECT_EQ(schedule({"1000", "0", 3, "2"}, straight_line), "333.33; 333.33; 333.34");
  EXPECT_EQ(schedule({"1000", "0", 3, "2"}, sum_of_digits), "500; 333.33; 166.67");
}

TEST(StraightLineTest, OfOneYear) {
  EXPECT_EQ(schedule({"1000", "100", 1, "0"}, straight_line), "900");
  EXPECT_EQ(schedule({"1000", "100", 1, "1"}, straight_line), "450; 450");
  EXPECT_EQ(schedule({"1000", "100", 1, "0"}, sum_of_digits), "900");
  EXPECT_EQ(schedule({"1000", "100", 1, "0"}, declining), "900");
}

TEST(StraightLineTest, OfNothingIsNothing) {
  EXPECT_EQ(schedule({"1000", "1000", 5, "1"}, straight_line), "");
  EXPECT_EQ(schedule({"1000", "1000", 5, "1"}, sum_of_digits), "");
  EXPECT_EQ(schedule({"1000", "1000", 5, "1"}, declining), "");
}

TEST(StraightLineTest, OfAFractionalLifeFollowsTheRoundedBounds) {
  // 2.5 years: the last whole year and the year after it are both index 2.
  EXPECT_EQ(schedule({"1000", "0", 2.5, "0"}, straight_line), "400; 400; 200");
  EXPECT_EQ(schedule({"1000", "0", 2.5, "1"}, straight_line), "200; 400");
}

TEST(SumOfYearsDigitsTest, WithAFullFirstYearCarriesWholeAssetYears) {
  EXPECT_EQ(schedule({"15000", "0", 5, "0"}, sum_of_digits), "5000; 4000; 3000; 2000; 1000");
}

TEST(SumOfYearsDigitsTest, SplitsAssetYearsOverFiscalYears) {
  EXPECT_EQ(schedule({"15000", "0", 5, "1"}, sum_of_digits), "2500; 4500; 3500; 2500; 1500; 500");
}

TEST(SumOfYearsDigitsTest, AddsSharesOfFourDecimalsBeforeRoundingToCents) {
  // 7.97 over 2 years: the shares 2.6567 and 1.3283 make 3.985, halves to even.
  EXPECT_EQ(schedule({"7.97", "0", 2, "1"}, sum_of_digits), "2.66; 3.98; 1.33");
  EXPECT_EQ(schedule({"100", "0", 7, "1"}, sum_of_digits),
            "12.5; 23.21; 19.64; 16.07; 12.5; 8.93; 5.36; 1.79");
}

TEST(SumOfYearsDigitsTest, RoundsEachShareToFourDecimalsOnly) {
  EXPECT_EQ(schedule({"47513.81", "4751.38", 22, "1"}, sum_of_digits),
            "1859.24; 3633.96; 3464.94; 3295.92; 3126.9; 2957.88; 2788.85; 2619.83; 2450.81; "
            "2281.79; 2112.77; 1943.75; 1774.73; 1605.7; 1436.68; 1267.66; 1098.64; 929.62; "
            "760.6; 591.58; 422.55; 253.53; 84.5");
}

TEST(SumOfYearsDigitsTest, MultipliesByTheBaseBeforeDividingByTheDigits) {
  // The second share is 1,452.18325 on paper; which way it goes hangs on the order.
  EXPECT_EQ(schedule({"8298.19", "0", 4, "2", Date::strict(2023, 6, 1)}, sum_of_digits),
            "1936.24; 2835.21; 2005.4; 1175.58; 345.76");
}

TEST(SumOfYearsDigitsTest, DoesNotRoundTheLastShareToCentsBeforeLookingWhetherItIsNothing) {
  // Ten cents over six years: 0.0048 fall to the year after the last, so the rest does too.
  EXPECT_EQ(schedule({"100", "99.90", 6, "3", Date::strict(2020, 9, 29), Date::strict(2020, 9, 30)},
                     sum_of_digits),
            "0; 0.03; 0.02; 0.02; 0.01; 0.01; 0.01");
}

TEST(SumOfYearsDigitsTest, OfAFractionalLifeRoundsTheDigitsToo) {
  // 2.5 years: 4.375 digits round to 4. 3.5 years: 7.875 to 8.
  EXPECT_EQ(schedule({"1000", "0", 2.5, "0"}, sum_of_digits), "625; 375");
  EXPECT_EQ(schedule({"1000", "0", 2.5, "1"}, sum_of_digits), "312.5; 500; -62.5");
  EXPECT_EQ(schedule({"1000", "0", 3.5, "1"}, sum_of_digits), "218.75; 375; 250; 0; 156.25");
}

TEST(DecliningBalanceTest, TakesWholeAssetYearsOffTheBookUnrounded) {
  EXPECT_EQ(schedule({"739312.54", "73931.25", 15, "0"}, declining),
            "98575.01; 85431.67; 74040.78; 64168.68; 55612.85; 48197.81; 41771.43; 36201.91; "
            "31374.99; 27191.66; 23566.1; 20423.95; 17700.76; 15340.66; 13295.24");
}

TEST(DecliningBalanceTest, StaysAboveSalvageZeroWithoutToppingUp) {
  EXPECT_EQ(schedule({"10000", "0", 5, "0"}, declining), "4000; 2400; 1440; 864; 518.4");
}

TEST(DecliningBalanceTest, StopsInTheYearThatReachesAHighSalvage) {
  EXPECT_EQ(schedule({"10000", "3000", 5, "0"}, declining), "4000; 2400; 600");
  EXPECT_EQ(schedule({"10000", "9000", 5, "0"}, declining), "1000");
  EXPECT_EQ(schedule({"10000", "6000", 5, "0"}, declining), "4000");
}

TEST(DecliningBalanceTest, SplitsAssetYearsOverFiscalYears) {
  EXPECT_EQ(schedule({"10000", "0", 5, "1"}, declining), "2000; 3200; 1920; 1152; 691.2; 259.2");
}

TEST(DecliningBalanceTest, OfAFractionalLifeBeginsAnAssetYearInTheLastFiscalYearToo) {
  // No fiscal year's index equals 3.5, so none is the one that only takes what was left over.
  EXPECT_EQ(schedule({"1000", "0", 3.5, "1"}, declining), "285.71; 408.16; 174.93; 74.97; 32.13");
}

TEST(DecliningBalanceTest, MultipliesFromLeftToRight) {
  // 13,934.315 on paper; which way it goes hangs on the order.
  EXPECT_EQ(schedule({"27868.63", "0", 3, "2", Date::strict(2023, 4, 1)}, declining),
            "13934.31; 9289.54; 3096.52; 516.09");
}

TEST(DecliningBalanceTest, CanStopInEitherHalfOfAFiscalYear) {
  // 38,450 less 4,000: the fifth fiscal year stops within its second half.
  EXPECT_EQ(schedule({"38450", "4000", 5, "1"}, declining),
            "7690; 12304; 7382.4; 4429.44; 2644.16");
}

TEST(DecliningBalanceTest, GivesBackWhatASalvageAboveTheBasisWouldTake) {
  EXPECT_EQ(schedule({"100", "150", 5, "0"}, declining), "-50; 0; 0; 0; -50");
}

TEST(Schedules, TakeNothingInTheFirstYearOfAHalfMonthStartAtItsEnd) {
  const Asset asset{"1200", "0", 4, "3", Date::strict(2023, 12, 16)};
  EXPECT_EQ(schedule(asset, straight_line), "0; 300; 300; 300; 300");
  EXPECT_EQ(schedule(asset, sum_of_digits), "0; 480; 360; 240; 120");
  EXPECT_EQ(schedule(asset, declining), "0; 600; 300; 150; 75");
}

TEST(Schedules, FillOneMoreFiscalYearForEveryPartialConvention) {
  for (const char* convention : {"1", "2", "3", "4"}) {
    CalculateDep record;
    fill(record, {"10000", "1000", 5, convention, Date::strict(2023, 5, 10)});
    EXPECT_NE(record.StraightLine()[5], Currency()) << convention;
    EXPECT_NE(record.SumofYearsDigits()[5], Currency()) << convention;
  }
}

Currency sum(const std::vector<Currency>& amounts) {
  Currency total;
  for (const Currency amount : amounts) total += amount;
  return total;
}

TEST(Schedules, SumToTheDepreciableBaseForEveryLifeConventionStartAndYearEnd) {
  const unsigned seed = 1966;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const auto below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
  CalculateDep record;
  for (int life = 1; life <= 50; ++life) {
    for (int convention = 0; convention <= 4; ++convention) {
      for (int round = 0; round < 60; ++round) {
        const int basis = 1 + below(999'999'999);
        record.AssetBasis(Currency::fromTicks(std::int64_t{basis} * 100));
        record.AssetSalvage(
            Currency::fromTicks(std::int64_t{below(static_cast<unsigned>(basis) + 1)} * 100));
        record.DepRecovery(life);
        record.DepConvention(std::to_string(convention));
        record.AssetStartDate(Date::strict(2000, 1, 1).plusDays(below(20'000)));
        record.FYEnd(Date::strict(2024, 1, 1).plusDays(below(366)));
        const Currency base = record.AssetBasis() - record.AssetSalvage();
        ASSERT_EQ(sum(record.StraightLine()), base) << life << " " << convention;
        ASSERT_EQ(sum(record.SumofYearsDigits()), base) << life << " " << convention;
        const auto amounts = record.DoubleDecliningBalance();
        ASSERT_LE(sum(amounts), base) << life << " " << convention;
        if (record.AssetStartDate().day() < 16 || convention != 3) {
          for (const Currency amount : amounts) ASSERT_GE(amount, Currency());
        }
      }
    }
  }
}

}  // namespace
}  // namespace depcalc
