#include "reports/charts/chart_svg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reports/methods_chart.h"
#include "values/display_format.h"

namespace depcalc {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

Chart chartNamed(const char* id) {
  SavedAsset asset;
  asset.id = id;
  asset.placed_in_service = Date::strict(2023, 9, 15);
  asset.fiscal_year_end = Date::strict(2023, 3, 31);
  asset.basis = Currency::fromText("38450");
  asset.salvage = Currency::fromText("4000");
  asset.life = 5;
  asset.convention = "1";
  asset.method = "SYD";
  return methodsChart(ReportAsset(asset));
}

constexpr PaperArea area{13500, 6000};

TEST(ChartSvg, HasEveryFigureAndWhatCrossesWhere) {
  const std::string svg = chartSvg(chartNamed("TRK-014"), area, SvgUse::file);
  EXPECT_THAT(svg, AllOf(StartsWith("<?xml"), HasSubstr("xmlns=\"http://www.w3.org/2000/svg\""),
                         HasSubstr("<title>TRK-014: book value and depreciation"),
                         HasSubstr("From FY2027 on, Straight Line takes more than Double Declining "
                                   "Balance."),
                         HasSubstr("width=\"900\" height=\"400\"")));
  for (const ChartSeries& series : chartNamed("TRK-014").series) {
    for (std::size_t year = 0; year < series.amounts.size(); ++year) {
      const std::string name = "FY" + std::to_string(2024 + year) + ", " + std::string(series.name);
      EXPECT_THAT(svg, AllOf(HasSubstr(name + ": " + formatMoney(series.amounts[year])),
                             HasSubstr(name + ": " + formatMoney(series.book_values[year]))));
    }
  }
  EXPECT_THAT(svg, AllOf(HasSubstr("FY2025, Sum of the Years' Digits: 10,335.00"),
                         HasSubstr("FY2029, Straight Line: 4,000.00")));
}

TEST(ChartSvg, LiesOnWhiteByItselfAndOnThePagesGroundInOne) {
  EXPECT_THAT(chartSvg(chartNamed("A"), area, SvgUse::file), HasSubstr("<rect"));
  const std::string in_a_page = chartSvg(chartNamed("A"), area, SvgUse::in_a_page);
  EXPECT_THAT(in_a_page, AllOf(StartsWith("<svg"), Not(HasSubstr("<rect"))));
}

TEST(ChartSvg, ShowsAnyNameLetterForLetter) {
  EXPECT_THAT(chartSvg(chartNamed("<b>&\"\x1B[31m"), area, SvgUse::file),
              HasSubstr(">&lt;b&gt;&amp;&quot;\\x1B[31m</text>"));
}

}  // namespace
}  // namespace depcalc
