// Amounts by the units produced.
#include "engine/units_produced.h"

#include <gtest/gtest.h>

namespace depcalc {
namespace {

Currency money(const char* text) { return Currency::fromText(text); }

TEST(UnitsProduced, TakeTheirRateToTheCentUpToWhatIsLeft) {
  const struct {
    double units;
    const char* rate;
    const char* left;
    const char* amount;
  } cases[] = {
      {0, "0.2297", "1000", "0"},
      {100, "0.2297", "1000", "22.97"},
      {50, "0.2297", "1000", "11.48"},   // 11.485: to the even cent
      {150, "0.2297", "1000", "34.46"},  // 34.455, which doubles reach from above
      {5000, "0.2297", "1000", "1000"},
      {5000, "0.2297", "0", "0"},
      {5000, "0.2297", "-5", "0"},
      {100, "0", "1000", "0"},
      {100, "-0.5", "1000", "0"},
      {0.5, "1", "1000", "0.5"},
      {1, "3", "0.0001", "0.0001"},
      {999'999'999'999, "99999999.9999", "12.5", "12.5"},
      {999'999'999'999, "9000000000000", "900000000000000", "900000000000000"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(amountOfUnits(c.units, money(c.rate), money(c.left)), money(c.amount))
        << c.units << " × " << c.rate;
  }
}

TEST(UnitsProduced, LeaveLessToEachLaterYear) {
  const UnitsByYear units{{2020, 7}, {2021, 100}, {2023, 50}, {2024, 80}, {2030, 10}};
  const auto amounts = amountsOfUnits(units, money("10"), money("2000"), 2021, 2029);
  EXPECT_EQ(amounts,
            (AmountsByYear{{2021, money("1000")}, {2023, money("500")}, {2024, money("500")}}));
}

TEST(UnitsProduced, TakeNothingBelowSalvage) {
  const auto amounts = amountsOfUnits({{2021, 100}}, money("10"), money("-1"), 2021, 2029);
  EXPECT_EQ(amounts, (AmountsByYear{{2021, Currency()}}));
}

}  // namespace
}  // namespace depcalc
