// The asset record: its properties, its amounts, its error reports.
#include "engine/calculate_dep.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"
#include "tests/support/reports.h"

namespace depcalc {
namespace {

Currency money(const char* text) { return Currency::fromText(text); }

TEST(AssetRecord, StartsWithZeroValues) {
  CalculateDep record;
  EXPECT_EQ(record.RecIndex(), "0");
  EXPECT_FALSE(record.RecNew() || record.RecSaved() || record.RecChanged());
  EXPECT_EQ(record.AssetID() + record.AssetName() + record.ASerial() + record.ADept(), "");
  EXPECT_TRUE(record.AssetEndDate().isNone() && record.AssetStartDate().isNone());
  EXPECT_TRUE(record.FYEnd().isNone());
  EXPECT_EQ(record.ASalePrice(), "0");
  EXPECT_EQ(record.AssetBasis(), Currency());
  EXPECT_EQ(record.AssetSalvage(), Currency());
  EXPECT_EQ(record.AssetProdCap(), "0");
  EXPECT_EQ(record.DepRecovery(), 0);
  EXPECT_EQ(record.DepConvention(), "0");
  EXPECT_EQ(record.DepMethod(), "");
  EXPECT_EQ(record.DepItem(0), Currency());
}

TEST(AssetRecord, KeepsWhatItIsGiven) {
  CalculateDep record;
  record.AssetID("TRK-014");
  record.AssetName("  Delivery truck ");
  record.ASerial("1FTYR10D");
  record.ADept("Warehouse");
  record.AssetStartDate(Date::strict(2023, 9, 15));
  record.AssetEndDate(Date::strict(2028, 1, 2));
  record.AssetBasis(money("38450.1234"));
  record.AssetSalvage(money("4000"));
  record.DepRecovery(7.5);
  record.FYEnd(Date::strict(2024, 3, 31));
  record.DepMethod("uop");
  record.RecNew(true);
  record.RecSaved(true);
  record.RecChanged(true);
  EXPECT_EQ(record.AssetID(), "TRK-014");
  EXPECT_EQ(record.AssetName(), "  Delivery truck ");
  EXPECT_EQ(record.ASerial(), "1FTYR10D");
  EXPECT_EQ(record.ADept(), "Warehouse");
  EXPECT_EQ(record.AssetStartDate(), Date::strict(2023, 9, 15));
  EXPECT_EQ(record.AssetEndDate(), Date::strict(2028, 1, 2));
  EXPECT_EQ(record.AssetBasis(), money("38450.1234"));
  EXPECT_EQ(record.AssetSalvage(), money("4000"));
  EXPECT_EQ(record.DepRecovery(), 7.5);
  EXPECT_EQ(record.FYEnd(), Date::strict(2024, 3, 31));
  EXPECT_EQ(record.DepMethod(), "uop");
  EXPECT_TRUE(record.RecNew() && record.RecSaved() && record.RecChanged());
}

TEST(AssetRecord, SettersTouchNoFlag) {
  CalculateDep record;
  record.AssetBasis(money("1"));
  record.RecIndex("4");
  record.DepItem(0, money("1"));
  EXPECT_FALSE(record.RecNew() || record.RecSaved() || record.RecChanged());
}

TEST(AssetRecord, ConvertsItsIndexAndKeepsTheOldOneOnAnyOtherText) {
  CalculateDep record;
  const std::pair<const char*, const char*> steps[] = {
      {"12", "12"}, {"abc", "12"},     {"", "12"},  {"2.5", "2"},
      {"3.5", "4"}, {"1,000", "1000"}, {"-3", "-3"}};
  for (const auto& [text, index] : steps) {
    record.RecIndex(text);
    EXPECT_EQ(record.RecIndex(), index) << text;
  }
  EXPECT_EQ(errorOf([&] { record.RecIndex("3e9"); }), 6);
  EXPECT_EQ(record.RecIndex(), "-3");
}

TEST(AssetRecord, ConvertsTheSalePriceExactly) {
  CalculateDep record;
  record.ASalePrice("1,250.50");
  EXPECT_EQ(record.ASalePrice(), "1250.5");
  record.ASalePrice("none");
  EXPECT_EQ(record.ASalePrice(), "1250.5");
  record.ASalePrice("90071992547409.9313");
  EXPECT_EQ(record.ASalePrice(), "90071992547409.9313");
  EXPECT_EQ(errorOf([&] { record.ASalePrice("1e15"); }), 6);
}

TEST(AssetRecord, TakesNoNumberForNoCapacity) {
  CalculateDep record;
  const std::pair<const char*, const char*> steps[] = {
      {"12,346", "12346"}, {"0.5", "0.5"}, {"abc", "0"}, {"1e20", "1E+20"}, {"", "0"}};
  for (const auto& [text, capacity] : steps) {
    record.AssetProdCap(text);
    EXPECT_EQ(record.AssetProdCap(), capacity) << text;
  }
}

TEST(AssetRecord, ConvertsTheConventionAndLetsErrorsThrough) {
  CalculateDep record;
  Reports reports;
  const std::pair<const char*, const char*> steps[] = {
      {"3", "3"}, {"", "0"}, {"4", "4"}, {"2.5", "2"}, {"-7", "-7"}};
  for (const auto& [text, convention] : steps) {
    record.DepConvention(text);
    EXPECT_EQ(record.DepConvention(), convention) << text;
  }
  EXPECT_EQ(errorOf([&] { record.DepConvention("Half Year"); }), 13);
  EXPECT_EQ(errorOf([&] { record.DepConvention("1e10"); }), 6);
  EXPECT_EQ(record.DepConvention(), "-7");
  EXPECT_TRUE(reports.all().empty());
}

TEST(AssetAmounts, ReadUpToTheYearAfterTheLastOnly) {
  CalculateDep record;
  Reports reports;
  record.DepRecovery(5);
  for (std::int16_t year = 0; year <= 6; ++year) {
    record.DepItem(year, Currency::fromTicks(100 + year));
  }
  EXPECT_EQ(record.DepItem(5).ticks(), 105);
  EXPECT_EQ(record.DepItem(6).ticks(), 0);  // stored, but beyond what is read
  EXPECT_TRUE(reports.all().empty());
  record.DepRecovery(6);
  EXPECT_EQ(record.DepItem(6).ticks(), 106);
}

TEST(AssetAmounts, AreAllocatedByTheFirstReading) {
  CalculateDep record;
  EXPECT_TRUE(record.depItems().empty());
  EXPECT_EQ(record.DepItem(0), Currency());
  EXPECT_EQ(record.depItems().size(), 2U);
}

TEST(AssetAmounts, ReportIndicesOutOfBounds) {
  CalculateDep record;
  record.DepRecovery(5);
  Reports reports;
  EXPECT_EQ(record.DepItem(-1), Currency());
  EXPECT_EQ(reports.last(), "DepCalc::Get DepItem Error#9: Subscript out of range");
  record.DepItem(7, money("1"));
  EXPECT_EQ(reports.last(), "DepCalc::Let DepItem Error#9: Subscript out of range");
  record.DepItem(-1, money("1"));
  EXPECT_EQ(reports.all().size(), 3U);
  EXPECT_EQ(record.DepItem(100), Currency());
  EXPECT_EQ(reports.all().size(), 3U);
}

TEST(AssetAmounts, FollowAFractionalLife) {
  CalculateDep record;
  Reports reports;
  record.DepRecovery(2.5);  // 3.5 rounds to an upper bound of 4
  record.DepItem(3, money("3"));
  record.DepItem(4, money("4"));
  EXPECT_EQ(record.DepItem(3), money("3"));
  EXPECT_EQ(record.DepItem(4), Currency());
  EXPECT_TRUE(reports.all().empty());
  record.DepItem(5, money("5"));
  EXPECT_EQ(reports.all().size(), 1U);
}

TEST(AssetAmounts, KeepThoseThatStillFitWhenTheLifeChanges) {
  CalculateDep record;
  record.DepRecovery(5);
  for (std::int16_t year = 0; year <= 5; ++year) record.DepItem(year, money("7"));
  record.DepRecovery(2);
  EXPECT_EQ(record.DepItem(2), money("7"));
  record.DepRecovery(5);
  EXPECT_EQ(record.DepItem(3), money("7"));  // index 3 was within bound 2 + 1
  EXPECT_EQ(record.DepItem(4), Currency());
}

TEST(AssetAmounts, ReportALifeTheyCannotHold) {
  CalculateDep record;
  Reports reports;
  record.DepRecovery(-2);
  EXPECT_EQ(record.DepItem(0), Currency());
  EXPECT_EQ(reports.last(), "DepCalc::Get DepItem Error#9: Subscript out of range");
  record.DepRecovery(1e10);
  record.DepItem(0, money("1"));
  EXPECT_EQ(reports.last(), "DepCalc::Let DepItem Error#6: Overflow");
}

TEST(FullyDepreciatedTest, IsStrict) {
  CalculateDep record;
  record.AssetBasis(money("1000"));
  EXPECT_FALSE(record.FullyDepreciated(900, 100));
  EXPECT_TRUE(record.FullyDepreciated(900.01, 100));
  record.AssetSalvage(money("50"));
  EXPECT_FALSE(record.FullyDepreciated(850, 100));
  EXPECT_TRUE(record.FullyDepreciated(850.0001, 100));
  // What was taken counts to four decimals.
  EXPECT_FALSE(record.FullyDepreciated(850, 100.00004));
  EXPECT_TRUE(record.FullyDepreciated(850, 100.00006));
}

class Calculations : public testing::Test {
 protected:
  Calculations() {
    record.AssetBasis(money("10000"));
    record.AssetSalvage(money("1000"));
    record.DepRecovery(5);
    record.AssetStartDate(Date::strict(2023, 7, 1));
    record.FYEnd(Date::strict(2023, 12, 31));
    record.DepConvention("1");
    record.AssetProdCap("90,000");
  }

  CalculateDep record;
  Reports reports;
};

TEST_F(Calculations, ReturnACopyWithRoomForOneMoreYear) {
  const auto amounts = record.StraightLine();
  ASSERT_EQ(amounts.size(), 7U);
  EXPECT_EQ(amounts[0], money("900"));
  EXPECT_EQ(amounts[1], money("1800"));
  EXPECT_EQ(amounts[4], money("1800"));
  EXPECT_EQ(amounts[5], money("900"));
  EXPECT_EQ(amounts[6], Currency());
  for (std::int16_t year = 0; year <= 5; ++year) {
    EXPECT_EQ(record.DepItem(year), amounts[static_cast<std::size_t>(year)]);
  }
}

TEST_F(Calculations, LeaveTheAmountsOfTheLastMethodWithTheRateInFront) {
  record.StraightLine();
  record.SumofYearsDigits();
  const auto declining = record.DoubleDecliningBalance();
  EXPECT_EQ(record.UnitsofProduction(), money("0.1"));
  EXPECT_EQ(record.DepItem(0), money("0.1"));
  for (std::int16_t year = 1; year <= 5; ++year) {
    EXPECT_EQ(record.DepItem(year), declining[static_cast<std::size_t>(year)]);
  }
}

TEST_F(Calculations, UseTheShareOfTheLastStraightLine) {
  record.StraightLine();  // Half Year: a share of one half
  const auto half = record.SumofYearsDigits();
  record.DepConvention("4");
  EXPECT_EQ(record.SumofYearsDigits(), half);  // stale until the next straight line
  record.StraightLine();
  EXPECT_NE(record.SumofYearsDigits(), half);
}

TEST_F(Calculations, LeaveTheShareOfTheLastStraightLineToDecliningBalance) {
  record.StraightLine();
  const auto half = record.DoubleDecliningBalance();
  record.DepConvention("4");
  EXPECT_EQ(record.DoubleDecliningBalance(), half);
  record.StraightLine();
  EXPECT_NE(record.DoubleDecliningBalance(), half);
}

TEST_F(Calculations, BeforeAnyStraightLineTheFirstYearTakesNothing) {
  const auto amounts = record.SumofYearsDigits();
  EXPECT_EQ(amounts[0], Currency());
  EXPECT_EQ(amounts[1], money("3000"));
  EXPECT_EQ(amounts[5], money("600"));
}

TEST_F(Calculations, OfAZeroLifeReportAndReturnNothing) {
  record.DepRecovery(0);
  EXPECT_TRUE(record.StraightLine().empty());
  EXPECT_EQ(reports.last(), "DepCalc::CalcDepSL Error#11: Division by zero");
  EXPECT_TRUE(record.SumofYearsDigits().empty());
  EXPECT_EQ(reports.last(), "DepCalc::CalcDepSYD Error#6: Overflow");
  EXPECT_TRUE(record.DoubleDecliningBalance().empty());
  EXPECT_EQ(reports.last(), "DepCalc::CalcDepDDB Error#11: Division by zero");
}

TEST_F(Calculations, WithNothingToDepreciateOverNoLifeOverflow) {
  record.DepRecovery(0);
  record.AssetSalvage(record.AssetBasis());
  record.StraightLine();
  EXPECT_EQ(reports.last(), "DepCalc::CalcDepSL Error#6: Overflow");
}

TEST_F(Calculations, StopWhereTheErrorStandsAndKeepWhatWasDone) {
  record.StraightLine();
  record.DepRecovery(0.4);  // the last whole year rounds to −1
  record.DepConvention("0");
  EXPECT_TRUE(record.StraightLine().empty());
  EXPECT_EQ(reports.last(), "DepCalc::CalcDepSL Error#9: Subscript out of range");
  EXPECT_EQ(record.DepItem(0), money("22500"));  // a whole year of 9,000 / 0.4
}

TEST_F(Calculations, OfDigitsBeyondSixteenBitsOverflow) {
  record.DepRecovery(255);
  record.StraightLine();
  EXPECT_FALSE(record.SumofYearsDigits().empty());
  record.DepRecovery(256);
  EXPECT_TRUE(record.SumofYearsDigits().empty());
  EXPECT_EQ(reports.last(), "DepCalc::CalcDepSYD Error#6: Overflow");
}

TEST_F(Calculations, OfAnImpossibleLifeFailToTheCaller) {
  record.DepRecovery(-2);
  EXPECT_EQ(errorOf([&] { record.StraightLine(); }), 9);
  EXPECT_EQ(errorOf([&] { record.SumofYearsDigits(); }), 9);
  EXPECT_EQ(errorOf([&] { record.DoubleDecliningBalance(); }), 9);
  EXPECT_TRUE(reports.all().empty());
}

TEST_F(Calculations, OfALifeWithRoomForOneAmountFailQuietly) {
  record.DepRecovery(-1);  // indices 0 to 0
  EXPECT_TRUE(record.StraightLine().empty());
  EXPECT_TRUE(record.SumofYearsDigits().empty());
  EXPECT_EQ(reports.last(), "DepCalc::CalcDepSYD Error#11: Division by zero");
}

TEST_F(Calculations, OfDatesOutOfRangeReport) {
  record.AssetStartDate(Date::strict(9999, 12, 31));
  record.FYEnd(Date::strict(2023, 6, 30));
  EXPECT_TRUE(record.StraightLine().empty());
  EXPECT_EQ(reports.last(), "DepCalc::CalcDepSL Error#5: Invalid procedure call or argument");
}

TEST_F(Calculations, UnitsOfProductionNeedsAmountsToBeThere) {
  EXPECT_EQ(record.UnitsofProduction(), Currency());
  EXPECT_EQ(reports.last(), "DepCalc::CalcDepUOP Error#9: Subscript out of range");
  record.StraightLine();
  EXPECT_EQ(record.UnitsofProduction(), money("0.1"));
}

TEST_F(Calculations, UnitsOfProductionWithoutCapacityNeedsNoAmounts) {
  record.StraightLine();
  record.AssetBasis(Currency::fromTicks(INT64_MAX));
  record.AssetSalvage(money("-1"));
  EXPECT_EQ(record.UnitsofProduction(), Currency());
  EXPECT_EQ(reports.last(), "DepCalc::CalcDepUOP Error#6: Overflow");
  record.AssetProdCap("0");
  EXPECT_EQ(record.UnitsofProduction(), Currency());
  EXPECT_EQ(record.DepItem(0), Currency());
  EXPECT_EQ(reports.all().size(), 1U);
}

TEST_F(Calculations, UnitsOfProductionRoundsToFourDecimals) {
  record.StraightLine();
  const std::pair<const char*, const char*> cases[] = {
      {"7", "1285.7143"}, {"0", "0"}, {"80000000", "0.0001"}, {"180000000", "0"}, {"-3", "-3000"}};
  for (const auto& [capacity, rate] : cases) {
    record.AssetProdCap(capacity);
    EXPECT_EQ(record.UnitsofProduction(), money(rate)) << capacity;
    EXPECT_EQ(record.DepItem(0), money(rate));
  }
}

}  // namespace
}  // namespace depcalc
