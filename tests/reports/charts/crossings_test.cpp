// Where methods cross, against a plain look at every pair of years.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "reports/methods_chart.h"
#include "tests/reports/random_register.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<Currency> money(std::initializer_list<int> amounts) {
  std::vector<Currency> values;
  for (const int amount : amounts) values.push_back(Currency::fromTicks(amount * 10'000LL));
  return values;
}

Chart chartOf(std::initializer_list<int> first, std::initializer_list<int> second) {
  return {.title = {},
          .first_year = 2024,
          .series = {{"SL", "Straight Line", money(first), money(first), false},
                     {"DDB", "Double Declining Balance", money(second), money(second), false}}};
}

struct Case {
  const char* what;
  std::initializer_list<int> first, second;
  std::vector<std::size_t> years;
  std::vector<double> places;
  std::vector<double> values;
};

TEST(Crossings, StandWhereTheOrderIsReversed) {
  const Case cases[] = {
      {"never", {5, 5, 5}, {9, 8, 7}, {}, {}, {}},
      {"the same throughout", {5, 5}, {5, 5}, {}, {}, {}},
      {"one year", {5}, {9}, {}, {}, {}},
      {"halfway", {5, 5}, {9, 1}, {1}, {0.5}, {5}},
      {"a quarter", {5, 5, 5}, {9, 6, 2}, {2}, {1.25}, {5}},
      {"in a year itself", {5, 5, 5}, {9, 5, 1}, {2}, {1}, {5}},
      {"behind years that are the same", {5, 5, 5, 5}, {9, 5, 5, 1}, {3}, {1}, {5}},
      {"touching without crossing", {5, 5, 5}, {9, 5, 9}, {}, {}, {}},
      {"the same from some year on", {5, 5, 0, 0}, {9, 5, 0, 0}, {}, {}, {}},
      {"apart from some year on", {5, 5, 5}, {5, 5, 1}, {}, {}, {}},
      {"there and back", {0, 8, 0}, {4, 4, 4}, {1, 2}, {0.5, 1.5}, {4, 4}},
      {"one shorter than the other", {0, 0, 9}, {4, 4}, {}, {}, {}},
      {"below nought", {-8, 0}, {0, -8}, {1}, {0.5}, {-4}},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    const auto found = crossingsOf(chartOf(each.first, each.second), &ChartSeries::amounts);
    ASSERT_EQ(found.size(), each.years.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
      EXPECT_EQ(found[i].year, each.years[i]);
      EXPECT_DOUBLE_EQ(found[i].at, each.places[i]);
      EXPECT_DOUBLE_EQ(found[i].value, each.values[i]);
    }
  }
}

TEST(Crossings, AreSaidInSentences) {
  EXPECT_THAT(crossingSentences(chartOf({5, 5}, {9, 1})),
              ElementsAre("From FY2025 on, Straight Line takes more than Double Declining Balance.",
                          "From FY2025 on, Straight Line leaves a higher book value than Double "
                          "Declining Balance."));
  EXPECT_THAT(crossingSentences(chartOf({5, 5}, {9, 8})), IsEmpty());
}

/// The years in which `a` is above or below `b` while the last year in which they differed had it
/// the other way round.
std::map<std::size_t, bool> reversals(const std::vector<Currency>& a,
                                      const std::vector<Currency>& b) {
  std::map<std::size_t, bool> found;
  for (std::size_t year = 1; year < std::min(a.size(), b.size()); ++year) {
    if (a[year] == b[year]) continue;
    for (std::size_t before = year; before-- > 0;) {
      if (a[before] == b[before]) continue;
      if ((a[before] > b[before]) != (a[year] > b[year])) found[year] = a[year] > b[year];
      break;
    }
  }
  return found;
}

void expectAll(const Chart& chart, ChartFigures figures) {
  const auto found = crossingsOf(chart, figures);
  std::size_t expected = 0;
  for (std::size_t a = 0; a < chart.series.size(); ++a) {
    for (std::size_t b = a + 1; b < chart.series.size(); ++b) {
      const auto& first = chart.series[a].*figures;
      const auto& second = chart.series[b].*figures;
      for (const auto& [year, first_above] : reversals(first, second)) {
        ++expected;
        const auto known = std::find_if(
            found.begin(), found.end(), [&, year = year, up = first_above](const Crossing& each) {
              return each.year == year && each.above == (up ? a : b) && each.below == (up ? b : a);
            });
        ASSERT_NE(known, found.end()) << "year " << year;
        EXPECT_LE(known->at, static_cast<double>(year));
        EXPECT_GT(known->at, 0);
      }
    }
  }
  EXPECT_EQ(found.size(), expected);
}

TEST(Crossings, AreThoseOfAPlainLookOnRandomAssets) {
  constexpr std::uint64_t seed = 20261;
  std::cout << "seed " << seed << '\n';
  testing_support::Random random(seed);
  std::size_t charts = 0;
  std::size_t crossings = 0;
  for (int i = 0; i < 400; ++i) {
    std::vector<SavedAsset> saved;
    for (const ReportAsset& asset : testing_support::someRegister(random, saved).assets) {
      const Chart chart = methodsChart(asset);
      ++charts;
      crossings += crossingsOf(chart, &ChartSeries::amounts).size();
      expectAll(chart, &ChartSeries::amounts);
      expectAll(chart, &ChartSeries::book_values);
      if (HasFatalFailure()) return;
    }
  }
  EXPECT_GT(charts, 1000U);
  EXPECT_GT(crossings, 1000U);
}

}  // namespace
}  // namespace depcalc
