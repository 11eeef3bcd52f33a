// Charts as pictures: everything inside, nothing upon anything else.
#include "reports/charts/chart_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <set>

#include "reports/charts/svg_measures.h"
#include "reports/methods_chart.h"
#include "tests/reports/pages/even_measures.h"
#include "tests/reports/random_register.h"

namespace depcalc {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Ge;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::SizeIs;

SavedAsset assetOf(double life, const char* basis, const char* salvage, const char* method) {
  SavedAsset asset;
  asset.id = "TRK-014";
  asset.name = "Delivery truck";
  asset.placed_in_service = Date::strict(2023, 9, 15);
  asset.fiscal_year_end = Date::strict(2023, 3, 31);
  asset.basis = Currency::fromText(basis);
  asset.salvage = Currency::fromText(salvage);
  asset.life = life;
  asset.convention = "1";
  asset.method = method;
  return asset;
}

Chart truck() { return methodsChart(ReportAsset(assetOf(5, "38450", "4000", "SYD"))); }

struct Box {
  double left, top, right, bottom;
};

/// Everything within the area, and no text over another one.
void expectInsideAndApart(const PaperPage& page, PaperArea area, const PaperMeasures& measures) {
  constexpr double slack = 0.5;
  const auto inside = [&](double x, double y) {
    return x >= -slack && y >= -slack && x <= area.width + slack && y <= area.height + slack;
  };
  std::vector<Box> boxes;
  for (const PaperText& text : page.texts) {
    const Box box{text.x, text.y, text.x + measures.width(text.text, text.font),
                  text.y + measures.lineHeight(text.font)};
    EXPECT_TRUE(inside(box.left, box.top) && inside(box.right, box.bottom))
        << text.text << " at " << text.x << ", " << text.y;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      const Box& other = boxes[i];
      EXPECT_FALSE(box.left < other.right - slack && other.left < box.right - slack &&
                   box.top < other.bottom - slack && other.top < box.bottom - slack)
          << text.text << " over " << page.texts[i].text;
    }
    boxes.push_back(box);
  }
  for (const PaperStroke& stroke : page.strokes) {
    for (const PaperPoint& point : stroke.points) {
      ASSERT_TRUE(inside(point.x, point.y)) << point.x << ", " << point.y;
    }
  }
}

std::multiset<std::string> textsOf(const PaperPage& page) {
  std::multiset<std::string> texts;
  for (const PaperText& text : page.texts) texts.insert(text.text);
  return texts;
}

std::multiset<std::string> sayingsOf(const PaperPage& page) {
  std::multiset<std::string> sayings;
  for (const PaperStroke& stroke : page.strokes) {
    if (!stroke.says.empty()) sayings.insert(stroke.says);
  }
  return sayings;
}

const testing::EvenMeasures even;
const SvgMeasures usual;

constexpr PaperArea areas[] = {least_chart,   wide_chart,     {5700, 7500}, {10466, 3600},
                               {13800, 4500}, {30000, 20000}, {4000, 20000}};

TEST(ChartLayout, PutsNothingUponAnythingElse) {
  struct Case {
    const char* what;
    double life;
    const char* basis;
    const char* salvage;
  };
  constexpr Case cases[] = {
      {"as usual", 5, "38450", "4000"},
      {"one year", 1, "38450", "4000"},
      {"half a year", 0.5, "38450", "4000"},
      {"fifty years", 50, "38450", "4000"},
      {"as long as it may be", 9000, "38450", "4000"},
      {"no life", 0, "38450", "4000"},
      {"nothing to depreciate", 5, "0", "0"},
      {"all salvage", 5, "4000", "4000"},
      {"cents", 5, "0.05", "0"},
      {"less than cents", 5, "0.0001", "0"},
      {"the most that the form takes", 50, "9999999.99", "0"},
      {"the most there is", 5, "922337203685477.5807", "0"},
      {"worth more than it cost", 5, "1000", "9000"},
      {"a basis below nought", 5, "-1000", "0"},
  };
  for (const Case& each : cases) {
    const Chart chart =
        methodsChart(ReportAsset(assetOf(each.life, each.basis, each.salvage, "DDB")));
    if (chart.series.empty()) continue;
    for (const PaperArea& area : areas) {
      for (const PaperMeasures* measures :
           {static_cast<const PaperMeasures*>(&even), static_cast<const PaperMeasures*>(&usual)}) {
        for (const auto year : {std::optional<std::size_t>(), std::optional<std::size_t>(0)}) {
          SCOPED_TRACE(std::string(each.what) + ", " + std::to_string(area.width));
          const ChartLayout layout(chart, area, *measures, {year, !year});
          expectInsideAndApart(layout.page(), area, *measures);
        }
      }
    }
  }
}

TEST(ChartLayout, PutsNothingUponAnythingElseForRandomAssets) {
  constexpr std::uint64_t seed = 20264;
  std::cout << "seed " << seed << '\n';
  testing_support::Random random(seed);
  std::size_t drawn = 0;
  for (int i = 0; i < 60; ++i) {
    std::vector<SavedAsset> saved;
    for (const ReportAsset& asset : testing_support::someRegister(random, saved).assets) {
      const Chart chart = methodsChart(asset);
      if (chart.series.empty()) continue;
      ++drawn;
      SCOPED_TRACE("register " + std::to_string(i) + ", asset " +
                   std::to_string(asset.saved().number));
      const PaperArea area = areas[static_cast<std::size_t>(random.below(7))];
      const ChartLayout layout(
          chart, area, usual,
          {random.oneIn(2) ? std::optional<std::size_t>(0) : std::nullopt, true});
      expectInsideAndApart(layout.page(), area, usual);
    }
  }
  EXPECT_GT(drawn, 100U);
}

TEST(ChartLayout, NamesTheMethodsAndTheChosenOneInBold) {
  const ChartLayout layout(truck(), {12000, 5000}, usual);
  EXPECT_THAT(textsOf(layout.page()),
              IsSupersetOf({"Straight Line", "Sum of the Years' Digits", "Double Declining Balance",
                            "Book value at the end of each fiscal year",
                            "Depreciation of each fiscal year", "FY2024", "FY2029", "40,000"}));
  for (const PaperText& text : layout.page().texts) {
    if (text.text == "Sum of the Years' Digits") {
      EXPECT_EQ(text.font, PaperFont::strong);
    } else if (text.text == "Straight Line") {
      EXPECT_EQ(text.font, PaperFont::body);
    }
  }
}

TEST(ChartLayout, DrawsTheChosenMethodHeavierAndEachInItsOwnWay) {
  const ChartLayout layout(truck(), {12000, 5000}, usual);
  std::set<PaperTone> tones;
  std::set<std::vector<double>> dashes;
  for (const PaperStroke& stroke : layout.page().strokes) {
    if (stroke.tone < PaperTone::first_line || stroke.filled || stroke.points.size() != 6) continue;
    tones.insert(stroke.tone);
    dashes.insert(stroke.dashes);
    EXPECT_EQ(stroke.width > 30, stroke.tone == PaperTone::second_line);
  }
  EXPECT_THAT(tones, SizeIs(3));
  EXPECT_THAT(dashes, SizeIs(3));
}

TEST(ChartLayout, MarksEveryFigureAndSaysIt) {
  const Chart chart = truck();
  const auto sayings = sayingsOf(ChartLayout(chart, {12000, 5000}, usual).page());
  EXPECT_THAT(sayings, SizeIs(2 * 3 * 6));
  EXPECT_THAT(sayings, IsSupersetOf({"FY2025, Sum of the Years' Digits: 10,335.00",
                                     "FY2025, Straight Line: 6,890.00",
                                     "FY2024, Double Declining Balance: 30,760.00"}));
}

TEST(ChartLayout, MarksWhereTwoCross) {
  const PaperPage page = ChartLayout(truck(), {12000, 5000}, usual).page();
  EXPECT_THAT(textsOf(page).count("FY2027"), Ge(3U)) << "the years of both plots, and a crossing";
  const auto rings = std::count_if(page.strokes.begin(), page.strokes.end(),
                                   [](const PaperStroke& s) { return s.tone == PaperTone::mark; });
  EXPECT_EQ(rings, 3);
}

TEST(ChartLayout, ShowsTheValuesOfAYear) {
  const ChartLayout layout(truck(), {5700, 7500}, usual, {.year = 1});
  EXPECT_THAT(textsOf(layout.page()),
              IsSupersetOf({"FY2025", "Book value", "Depreciation", "28,115.00", "6,890.00",
                            "22,373.33", "10,335.00", "18,456.00", "12,304.00"}));
  SavedAsset asset = assetOf(5, "38450", "4000", "SYD");
  asset.capacity = "100";
  asset.units = {{2024, 10}};
  const ChartLayout with_units(methodsChart(ReportAsset(asset)), {5700, 7500}, usual, {.year = 1});
  EXPECT_THAT(textsOf(with_units.page()), Contains("\xE2\x80\x93")) << "no units in that year";
}

TEST(ChartLayout, UsesCodesWhereNamesHaveNoRoom) {
  const auto texts = textsOf(ChartLayout(truck(), least_chart, usual, {.year = 0}).page());
  EXPECT_THAT(texts, AllOf(IsSupersetOf({"SL", "SYD", "DDB"}), Not(Contains("Straight Line"))));
}

TEST(ChartLayout, FindsTheNearestYear) {
  for (const PaperArea area : {PaperArea{5700, 7500}, PaperArea{13800, 4500}}) {
    const ChartLayout layout(truck(), area, usual);
    EXPECT_EQ(layout.yearAt(-1000), 0U);
    EXPECT_EQ(layout.yearAt(area.width + 1000), 5U);
    std::set<std::size_t> seen;
    for (double x = 0; x < area.width; x += 20) seen.insert(layout.yearAt(x));
    EXPECT_THAT(seen, SizeIs(6));
  }
}

TEST(ChartLayout, ShortensATitleThatIsTooLong) {
  Chart chart = truck();
  chart.title = std::string(200, 'x');
  expectInsideAndApart(ChartLayout(chart, {5700, 7500}, usual, {.year = {}, .titled = true}).page(),
                       {5700, 7500}, usual);
}

}  // namespace
}  // namespace depcalc
