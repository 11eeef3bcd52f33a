// The words and steps of single amounts.
#include "explain/explanation.h"

#include <gtest/gtest.h>

#include "engine/convention.h"
#include "tests/support/error_of.h"

namespace depcalc {
namespace {

ExplainedAsset truck() {
  return {.placed_in_service = Date::strict(2023, 9, 15),
          .fiscal_year_end = Date::strict(2000, 3, 31),
          .basis = Currency::fromText("38450"),
          .salvage = Currency::fromText("4000"),
          .life = 5,
          .convention = cdepHalfYear,
          .capacity = 1000,
          .disposed = {},
          .units = {}};
}

/// The steps as people see them, one a line.
std::string shown(const Explanation& explanation) {
  std::string text;
  for (const ExplainedStep& step : explanation.steps) {
    text += step.words + ": ";
    if (!step.shown_expression.empty()) text += step.shown_expression + " = ";
    text += step.shown_result + '\n';
  }
  return text;
}

TEST(Explanation, OfSumOfYearsDigitsSplitsAssetYears) {
  const Explanation one = explainYear(truck(), "SYD", 2025);
  EXPECT_EQ(titleOf(one), "Sum of the Years' Digits, FY2025");
  EXPECT_EQ(one.amount, Currency::fromText("10335"));
  EXPECT_EQ(one.taken, Currency::fromText("16076.67"));
  EXPECT_EQ(one.base, Currency::fromText("34450"));
  EXPECT_EQ(shown(one),
            "Basis less salvage value: 38,450.00 − 4,000.00 = 34,450.00\n"
            "Half Year: share of asset year 1: 0.5\n"
            "Digits of 5 years: (5 + 1) × 5 ÷ 2 = 15\n"
            "Asset year 1: 34,450.00 × 5 ÷ 15 = 11,483.333333…\n"
            "Half Year: share left of asset year 1: 1 − 0.5 = 0.5\n"
            "Rest of asset year 1: 11,483.333333… × 0.5 = 5,741.6667\n"
            "Asset year 2: (5 − 1) × 34,450.00 ÷ 15 = 9,186.666666…\n"
            "First half of asset year 2: 9,186.666666… × 0.5 = 4,593.3333\n"
            "Sum, rounded to cents: 5,741.6667 + 4,593.3333 = 10,335.00\n");
}

TEST(Explanation, SaysHowTheFirstYearsShareCameAbout) {
  const struct {
    std::int32_t convention;
    const char* steps;
  } cases[] = {
      {cdepfullyear, "Full Year: the fiscal year takes a whole asset year: 1\n"},
      {cdepHalfYear, "Half Year: share of asset year 1: 0.5\n"},
      {cdepFullMonth,
       "Days from 09/01/2023 to 03/31/2024, in months of 30: 212 ÷ 30 = 7.066666…\n"
       "To the nearest whole month: 7\n"
       "Full Month from 09/01/2023: share of asset year 1: 7 ÷ 12 = 0.583333…\n"},
      {cdepActualDays,
       "Days in service, 09/15/2023 to 03/31/2024, both counted: 198 + 1 = 199\n"
       "Days of that fiscal year, February 29 among them: 366\n"
       "Actual Days from 09/15/2023: share of asset year 1: 199 ÷ 366 = 0.543715…\n"},
      {7, "Convention 7 is none of the five: no share in the first fiscal year: 0\n"},
  };
  for (const auto& c : cases) {
    ExplainedAsset asset = truck();
    asset.convention = c.convention;
    EXPECT_NE(shown(explainYear(asset, "SL", 2024)).find(c.steps), std::string::npos)
        << shown(explainYear(asset, "SL", 2024));
  }
}

TEST(Explanation, SettlesTheRoundingOfAScheduleInItsLastYear) {
  ExplainedAsset asset = truck();
  asset.convention = cdepFullMonth;
  const std::string text = shown(explainYear(asset, "SL", 2029));
  EXPECT_NE(text.find("Taken in all years, as rounded: 31,579.17 + 2,870.8333 = 34,450.0033\n"
                      "Too much by rounding: 34,450.00 − 34,450.0033 = −0.0033\n"
                      "With the difference that rounding made: 2,870.8333 − 0.0033 = 2,870.83\n"),
            std::string::npos)
      << text;
}

TEST(Explanation, OfDecliningBalanceSaysWhatIsLeftToTake) {
  ExplainedAsset asset = truck();
  asset.salvage = Currency::fromText("10000");
  const std::string text = shown(explainYear(asset, "DDB", 2027));
  EXPECT_NE(text.find("More than is left"), std::string::npos) << text;
  EXPECT_NE(shown(explainYear(asset, "DDB", 2029)).find("Down to salvage value in FY202"),
            std::string::npos);
}

TEST(Explanation, OfUnitsSaysRateUnitsAndTheCap) {
  ExplainedAsset asset = truck();
  asset.units = {{2024, 400}, {2026, 1000}};
  const auto all = explain(asset, "UOP");
  ASSERT_EQ(all.size(), 3);
  EXPECT_EQ(titleOf(all[0]), "Units of Production, rate per unit");
  EXPECT_EQ(shown(all[2]),
            "Basis less salvage value: 38,450.00 − 4,000.00 = 34,450.00\n"
            "Spread over a capacity of 1,000 units: rate per unit: 34,450.00 ÷ 1,000 = 34.45\n"
            "Left to take before FY2024: 34,450.00\n"
            "Taken in FY2024: 400 × 34.45 = 13,780.00\n"
            "Left to take: 34,450.00 − 13,780.00 = 20,670.00\n"
            "1,000 units at the rate, rounded to cents: 1,000 × 34.45 = 34,450.00\n"
            "More than is left: only what is left is taken: 20,670.00\n");
}

TEST(Explanation, OfTheYearOfDisposalTakesTheShareHeld) {
  ExplainedAsset asset = truck();
  asset.convention = cdepFullMonth;
  asset.disposed = Date::strict(2026, 1, 10);
  EXPECT_EQ(shown(explainYear(asset, "SL", 2026)),
            "Basis less salvage value: 38,450.00 − 4,000.00 = 34,450.00\n"
            "Spread evenly over 5 years: 34,450.00 ÷ 5 = 6,890.00\n"
            "A whole year, rounded to cents: 6,890.00\n"
            "Disposed of 01/10/2026, in fiscal year: 2026\n"
            "Months held, 04/01/2025 until 01/10/2026: 9\n"
            "Full Month: share of the fiscal year held: 9 ÷ 12 = 0.75\n"
            "Share held of the year's amount, rounded to cents: 6,890.00 × 0.75 ÷ 1 = 5,167.50\n");
  asset.disposed = Date::strict(2024, 2, 1);
  const Explanation at_once = explainYear(asset, "SL", 2024);
  EXPECT_EQ(at_once.amount, Currency());
  EXPECT_EQ(at_once.steps.back().words,
            "In service and disposed of in one fiscal year: nothing is taken");
}

TEST(Explanation, OfAYearWithoutAnAmountSaysWhy) {
  ExplainedAsset asset = truck();
  const struct {
    const char* method;
    int year;
    const char* words;
  } cases[] = {
      {"SL", 2023, "Not yet in service: placed in service 09/15/2023, in FY2024"},
      {"SL", 2030, "The useful life of 5 years ended in FY2029: nothing is taken afterwards"},
      {"UOP", 2025, "No units were entered for this fiscal year"},
  };
  for (const auto& c : cases) {
    const Explanation none = explainYear(asset, c.method, c.year);
    EXPECT_EQ(none.amount, Currency());
    ASSERT_EQ(none.steps.size(), 1);
    EXPECT_EQ(none.steps.front().words, c.words);
  }
  asset.disposed = Date::strict(2026, 1, 10);
  EXPECT_EQ(explainYear(asset, "SL", 2027).steps.front().words,
            "Disposed of 01/10/2026, in FY2026: nothing is taken afterwards");
}

TEST(Explanation, OfWhatCannotBeCalculatedIsTheCalculationsError) {
  ExplainedAsset asset = truck();
  asset.life = 0;
  EXPECT_EQ(errorOf([&] { (void)explain(asset, "SL"); }), 11);
  asset.life = 1e6;
  EXPECT_EQ(errorOf([&] { (void)explain(asset, "SL"); }), 6);
  EXPECT_TRUE(explain(asset, "").empty());
}

}  // namespace
}  // namespace depcalc
