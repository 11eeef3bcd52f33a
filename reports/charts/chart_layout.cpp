#include "reports/charts/chart_layout.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "reports/charts/chart_legend.h"
#include "reports/pages/broken_lines.h"

namespace depcalc {
namespace {

constexpr double gap = 140;      // twips
constexpr double between = 360;  // twips
constexpr double beside_ratio =
    1.7;  ///< of width to height, from which on plots stand side by side

struct Kind {
  ChartFigures figures;
  std::array<std::string_view, 2> captions;  ///< the second where the first has no room
};

const std::array<Kind, 2> kinds{
    {{&ChartSeries::book_values, {"Book value at the end of each fiscal year", "Book value"}},
     {&ChartSeries::amounts, {"Depreciation of each fiscal year", "Depreciation"}}}};

std::string_view captionOf(const Kind& kind, double width, const PaperMeasures& measures) {
  return measures.width(kind.captions[0], PaperFont::heading) <= width ? kind.captions[0]
                                                                       : kind.captions[1];
}

}  // namespace

ChartLayout::ChartLayout(const Chart& chart, PaperArea area, const PaperMeasures& measures,
                         const ChartView& view)
    : area_(area) {
  double y = 0;
  if (view.titled && !chart.title.empty()) {
    page_.texts.push_back({0, y, PaperFont::heading,
                           shortened(chart.title, area.width, PaperFont::heading, measures)});
    y += measures.lineHeight(PaperFont::heading) + gap;
  }
  y = addLegend(page_, chart, view.year, y, area.width, measures) + gap;
  drawPlots(chart, y, measures, view.year);
}

void ChartLayout::drawPlots(const Chart& chart, double y, const PaperMeasures& measures,
                            std::optional<std::size_t> year) {
  const bool beside = area_.width > beside_ratio * area_.height;
  const double height = area_.height - y;
  const PlotPlace first{0, y, beside ? (area_.width - between) / 2 : area_.width,
                        beside ? height : (height - gap) / 2};
  PlotPlace second = first;
  (beside ? second.x : second.y) += beside ? first.width + between : first.height + gap;
  std::array plots{ChartPlot(chart, kinds[0].figures, first, measures),
                   ChartPlot(chart, kinds[1].figures, second, measures)};
  const double labels = std::max(plots[0].labelWidth(), plots[1].labelWidth());
  for (std::size_t i = 0; i < plots.size(); ++i) {
    plots[i].setLabelWidth(labels);
    plots[i].draw(page_, captionOf(kinds[i], first.width, measures), year);
    years_.emplace_back();
    for (std::size_t k = 0; k < chart.years(); ++k) {
      years_.back().push_back(plots[i].xOf(static_cast<double>(k)));
    }
  }
}

std::size_t ChartLayout::yearAt(double x) const {
  std::size_t nearest = 0;
  double distance = HUGE_VAL;
  for (const std::vector<double>& years : years_) {
    for (std::size_t k = 0; k < years.size(); ++k) {
      if (std::fabs(years[k] - x) >= distance) continue;
      distance = std::fabs(years[k] - x);
      nearest = k;
    }
  }
  return nearest;
}

}  // namespace depcalc
