#include "reports/charts/chart_axis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <iostream>
#include <random>

namespace depcalc {
namespace {

std::string textsOf(const ChartAxis& axis) {
  std::string texts;
  for (const Currency tick : axis.ticks) texts += (texts.empty() ? "" : " ") + tickText(axis, tick);
  return texts;
}

TEST(ChartAxis, HasRoundAmountsAroundAllThatIsDrawn) {
  struct Case {
    const char* least;
    const char* most;
    int intervals;
    const char* ticks;
  };
  const Case cases[] = {
      {"0", "0", 5, "0"},
      {"0", "1", 5, "0.00 0.20 0.40 0.60 0.80 1.00"},
      {"0", "34950", 5, "0 10,000 20,000 30,000 40,000"},
      {"4000", "34950", 4, "0 10,000 20,000 30,000 40,000"},
      {"0", "40000", 4, "0 10,000 20,000 30,000 40,000"},
      {"0", "40000.01", 4, "0 20,000 40,000 60,000"},
      {"0", "0.05", 5, "0.00 0.01 0.02 0.03 0.04 0.05"},
      {"0", "0.0001", 5, "0.00 0.0001"},
      {"-300", "0", 4, "-300 -200 -100 0"},
      {"-300", "900", 4, "-500 0 500 1,000"},
      {"0", "9999999.99", 5, "0 2M 4M 6M 8M 10M"},
      {"0", "999999", 5, "0 200,000 400,000 600,000 800,000 1,000,000"},
      {"0", "922337203685477.5807", 5, "0 200T 400T 600T 800T"},
      {"-922337203685477.5808", "922337203685477.5807", 2, "-500T 0 500T"},
  };
  for (const Case& each : cases) {
    const ChartAxis axis =
        chartAxis(Currency::fromText(each.least), Currency::fromText(each.most), each.intervals);
    EXPECT_EQ(textsOf(axis), each.ticks) << each.least << " to " << each.most;
    EXPECT_LE(axis.low, Currency::fromText(each.least).toDouble());
    EXPECT_GE(axis.high, Currency::fromText(each.most).toDouble());
  }
}

TEST(ChartAxis, IsFullUseOfItsIntervalsForAnyAmounts) {
  constexpr unsigned seed = 20263;
  std::cout << "seed " << seed << '\n';
  std::mt19937_64 random(seed);
  for (int i = 0; i < 20'000; ++i) {
    const auto any = [&] {
      const auto bits = static_cast<unsigned>(random() % 64);
      const auto size = static_cast<std::int64_t>(random() >> 1U >> bits);
      return Currency::fromTicks(random() % 2 == 0 ? size : -size);
    };
    const Currency a = any();
    const Currency b = any();
    const int intervals = static_cast<int>(2 + random() % 9);
    const ChartAxis axis = chartAxis(std::min(a, b), std::max(a, b), intervals);
    SCOPED_TRACE(std::min(a, b).toText() + " to " + std::max(a, b).toText());
    ASSERT_LE(axis.low, std::min(a, b).toDouble());
    ASSERT_GE(axis.high, std::max(a, b).toDouble());
    ASSERT_LT(axis.low, axis.high);
    ASSERT_LE(axis.ticks.size(), static_cast<std::size_t>(intervals) + 3);
    ASSERT_GE(axis.ticks.size(), 1U);
    for (std::size_t k = 1; k < axis.ticks.size(); ++k) {
      ASSERT_EQ(axis.ticks[k] - axis.ticks[k - 1], axis.step);
      ASSERT_NE(tickText(axis, axis.ticks[k]), tickText(axis, axis.ticks[k - 1]));
    }
  }
}

}  // namespace
}  // namespace depcalc
