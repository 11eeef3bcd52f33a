// What a chart shows: the engine's figures, nothing else.
#include "reports/methods_chart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>

#include "reports/todays_calculation.h"
#include "tests/reports/random_register.h"

namespace depcalc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

Currency money(std::int64_t units) { return Currency::fromTicks(units * 10'000); }

SavedAsset truck() {
  SavedAsset asset;
  asset.number = 1;
  asset.id = "TRK";
  asset.name = "Truck";
  asset.placed_in_service = Date::strict(2023, 9, 15);
  asset.fiscal_year_end = Date::strict(2023, 3, 31);
  asset.basis = money(1000);
  asset.salvage = money(100);
  asset.life = 3;
  asset.convention = "0";
  asset.method = "SYD";
  asset.capacity = "90";
  return asset;
}

TEST(MethodsChart, HasAmountsAndBookValuesOfEveryMethod) {
  const Chart chart = methodsChart(ReportAsset(truck()));
  EXPECT_EQ(chart.title, "TRK, Truck");
  EXPECT_EQ(chart.first_year, 2024);
  ASSERT_THAT(chart.series, SizeIs(3));
  EXPECT_THAT(chart.series[0].amounts, ElementsAre(money(300), money(300), money(300)));
  EXPECT_THAT(chart.series[0].book_values, ElementsAre(money(700), money(400), money(100)));
  EXPECT_THAT(chart.series[1].amounts, ElementsAre(money(450), money(300), money(150)));
  EXPECT_EQ(chart.series[1].name, "Sum of the Years' Digits");
  EXPECT_TRUE(chart.series[1].chosen);
  EXPECT_FALSE(chart.series[0].chosen);
}

TEST(MethodsChart, HasUnitsOfProductionUpToTheLastYearWithUnits) {
  SavedAsset asset = truck();
  asset.units = {{2024, 30}, {2026, 10}};
  const Chart chart = methodsChart(ReportAsset(asset));
  ASSERT_THAT(chart.series, SizeIs(4));
  EXPECT_EQ(chart.series[3].code, "UOP");
  EXPECT_THAT(chart.series[3].amounts, ElementsAre(money(300), money(0), money(100)));
  EXPECT_THAT(chart.series[3].book_values, ElementsAre(money(700), money(700), money(600)));
}

TEST(MethodsChart, HasNothingWhereNothingCanBeCalculated) {
  SavedAsset asset = truck();
  asset.life = -1;
  EXPECT_THAT(methodsChart(ReportAsset(asset)).series, IsEmpty());
  asset.life = 1e9;
  EXPECT_THAT(methodsChart(ReportAsset(asset)).series, IsEmpty());
}

/// Each figure by itself: the amount of the calculation, and the basis less all amounts up to it.
TEST(MethodsChart, AddsUpToTheCalculationOnRandomAssets) {
  constexpr std::uint64_t seed = 20262;
  std::cout << "seed " << seed << '\n';
  testing_support::Random random(seed);
  std::size_t figures = 0;
  for (int i = 0; i < 300; ++i) {
    std::vector<SavedAsset> saved;
    for (const ReportAsset& asset : testing_support::someRegister(random, saved).assets) {
      const MethodResults results = testing_support::calculatedFor(asset.saved());
      const Chart chart = methodsChart(asset);
      for (const ChartSeries& series : chart.series) {
        ASSERT_EQ(series.amounts.size(), series.book_values.size());
        for (const ScheduledMethod& scheduled : scheduled_methods) {
          if (series.code != scheduled.method.code) continue;
          const auto& amounts = results.*scheduled.amounts;
          Currency taken;
          for (std::size_t year = 0; year < amounts.size(); ++year) {
            taken += amounts[year];
            if (year >= series.amounts.size()) {
              ASSERT_EQ(amounts[year], Currency()) << "left out";
              continue;
            }
            ++figures;
            ASSERT_EQ(series.amounts[year], amounts[year]);
            ASSERT_EQ(series.book_values[year], asset.saved().basis - taken);
          }
        }
      }
    }
  }
  EXPECT_GT(figures, 10'000U);
}

TEST(ChartReport, HasEveryFigureInATable) {
  SavedAsset asset = truck();
  asset.units = {{2024, 30}};
  const Report report = chartReport(methodsChart(ReportAsset(asset)));
  const Table& table = report.tables.front();
  ASSERT_EQ(table.rowCount(), 3U);
  EXPECT_THAT(table.columns(), SizeIs(9));
  EXPECT_EQ(table.columns()[2].caption, "Straight Line, book value");
  EXPECT_THAT(table.row(0),
              ElementsAre(Cell(2024), Cell(money(300)), Cell(money(700)), Cell(money(450)),
                          Cell(money(550)), Cell(money(666) + Currency::fromTicks(6'700)),
                          Cell(money(333) + Currency::fromTicks(3'300)), Cell(money(300)),
                          Cell(money(700))));
  EXPECT_EQ(table.row(1)[7], Cell()) << "no units were entered";
}

}  // namespace
}  // namespace depcalc
