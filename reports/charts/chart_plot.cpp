#include "reports/charts/chart_plot.h"

#include <algorithm>
#include <cmath>

#include "reports/charts/chart_lines.h"
#include "reports/charts/label_places.h"
#include "reports/company_years.h"
#include "values/display_format.h"

namespace depcalc {
namespace {

constexpr double label_gap = 90;             // twips
constexpr double least_mark_distance = 150;  // twips
constexpr double least_tick_distance = 1.7;  ///< in lines of text
constexpr double hair = 10;                  // twips
constexpr double axis_width = 15;            // twips
constexpr double year_gap = 120;             ///< twips between the names of years
constexpr double touch = 1;                  ///< twips: lines this near meet

void addLine(PaperPage& page, PaperPoint from, PaperPoint to, PaperTone tone, double width) {
  page.strokes.push_back({.points = {from, to}, .tone = tone, .width = width});
}

}  // namespace

ChartPlot::ChartPlot(const Chart& chart, ChartFigures figures, const PlotPlace& place,
                     const PaperMeasures& measures)
    : chart_(chart), figures_(figures), place_(place), measures_(measures) {
  Currency least;
  Currency most;
  for (const ChartSeries& series : chart.series) {
    for (const Currency amount : series.*figures) {
      least = std::min(least, amount);
      most = std::max(most, amount);
    }
  }
  const double room = (bottom() - top()) / (textLine() * least_tick_distance);
  axis_ = chartAxis(least, most, static_cast<int>(std::clamp(room, 2.0, 8.0)));
  label_width_ = labelWidth();
}

double ChartPlot::labelWidth() const {
  double widest = 0;
  for (const Currency tick : axis_.ticks) {
    widest = std::max(widest, measures_.width(tickText(axis_, tick), PaperFont::small));
  }
  return widest + label_gap;
}

/// Half a line above the highest amount's label.
double ChartPlot::top() const {
  return place_.y + measures_.lineHeight(PaperFont::heading) + textLine() / 2 + label_gap / 2;
}

double ChartPlot::bottom() const { return place_.y + place_.height - 1.5 * textLine() - label_gap; }

double ChartPlot::yOf(double amount) const {
  return bottom() - (amount - axis_.low) / (axis_.high - axis_.low) * (bottom() - top());
}

/// Half the name of a year has room on either side.
double ChartPlot::yearInset() const {
  return measures_.width(yearText(chart_.years() - 1, true), PaperFont::small) / 2;
}

double ChartPlot::yearDistance() const {
  const double width = right() - left() - 2 * yearInset();
  return chart_.years() < 2 ? width : width / static_cast<double>(chart_.years() - 1);
}

double ChartPlot::xOf(double year) const {
  if (chart_.years() < 2) return (left() + right()) / 2;
  return left() + yearInset() + year * yearDistance();
}

std::string ChartPlot::yearText(std::size_t year, bool whole) const {
  std::string name = fiscalYearName(chart_.first_year + static_cast<int>(year));
  return whole ? name : "FY" + name.substr(name.size() - 2);
}

void ChartPlot::draw(PaperPage& page, std::string_view caption,
                     std::optional<std::size_t> year) const {
  page.texts.push_back({place_.x, place_.y, PaperFont::heading, std::string(caption)});
  drawAxis(page);
  drawYears(page);
  if (year) {
    const double x = xOf(static_cast<double>(*year));
    addLine(page, {x, top()}, {x, bottom()}, PaperTone::accent, axis_width);
  }
  for (const bool chosen : {false, true}) {
    for (const ChartSeries& series : chart_.series) {
      if (series.chosen == chosen) drawSeries(page, series);
    }
  }
  drawCrossings(page);
}

void ChartPlot::drawAxis(PaperPage& page) const {
  for (const Currency tick : axis_.ticks) {
    const double y = yOf(tick.toDouble());
    const std::string text = tickText(axis_, tick);
    const double width = measures_.width(text, PaperFont::small);
    page.texts.push_back(
        {left() - label_gap - width, y - textLine() / 2, PaperFont::small, text, PaperHold::right});
    const bool zero = tick == Currency();
    addLine(page, {left(), y}, {right(), y}, zero ? PaperTone::axis : PaperTone::hairline,
            zero ? axis_width : hair);
  }
  addLine(page, {left(), top()}, {left(), bottom()}, PaperTone::axis, axis_width);
}

/// In full where all of them have room so; else as many short ones as have room.
void ChartPlot::drawYears(PaperPage& page) const {
  const std::size_t count = chart_.years();
  const auto widthOf = [&](bool whole) {
    return measures_.width(yearText(count - 1, whole), PaperFont::small) + year_gap;
  };
  const bool whole = count > 100 || count < 2 || widthOf(true) <= yearDistance();
  std::size_t every = 1;
  for (int i = 0; static_cast<double>(every) * yearDistance() < widthOf(whole) && every < count;
       ++i) {
    every = i % 3 == 1 ? every / 2 * 5 : every * 2;  // 1, 2, 5, 10, 20, …
  }
  for (std::size_t year = 0; year < count; year += every) {
    const std::string text = yearText(year, whole);
    const double x = xOf(static_cast<double>(year)) - measures_.width(text, PaperFont::small) / 2;
    page.texts.push_back({x, bottom() + textLine() / 2, PaperFont::small, text, PaperHold::middle});
  }
}

std::vector<PaperPoint> ChartPlot::pointsOf(const ChartSeries& series) const {
  std::vector<PaperPoint> points;
  for (const Currency amount : series.*figures_) {
    points.push_back({xOf(static_cast<double>(points.size())), yOf(amount.toDouble())});
  }
  return points;
}

/// Where years lie close together, only some marks are to be seen.
void ChartPlot::drawSeries(PaperPage& page, const ChartSeries& series) const {
  const std::vector<PaperPoint> points = pointsOf(series);
  const auto every = static_cast<std::size_t>(
      std::max(1.0, std::ceil(least_mark_distance / std::max(touch, yearDistance()))));
  if (points.size() > 1) page.strokes.push_back(seriesStroke(series, points));
  for (std::size_t year = 0; year < points.size(); ++year) {
    std::string says = yearText(year, true) + ", ";
    says.append(series.name).append(": ").append(formatMoney((series.*figures_)[year]));
    page.strokes.push_back(seriesMark(series, points[year], std::move(says)));
    if (year % every != 0) page.strokes.back().filled = false;
  }
}

/// A ring each, several in one place being one; and the name of the first year in the new order
/// beside it, where that has room.
void ChartPlot::drawCrossings(PaperPage& page) const {
  LabelPlaces places({left(), top() - textLine() / 2, right(), bottom()});
  for (const ChartSeries& series : chart_.series) places.addLine(pointsOf(series));
  std::vector<std::pair<PaperPoint, std::size_t>> seen;
  for (const Crossing& crossing : crossingsOf(chart_, figures_)) {
    const PaperPoint at{xOf(crossing.at), yOf(crossing.value)};
    const bool known = std::any_of(seen.begin(), seen.end(), [&](const auto& other) {
      return std::hypot(other.first.x - at.x, other.first.y - at.y) < ring_radius;
    });
    if (known) continue;
    seen.emplace_back(at, crossing.year);
    page.strokes.push_back(ring(at));
    places.take({at.x - ring_radius, at.y - ring_radius, at.x + ring_radius, at.y + ring_radius});
  }
  for (const auto& [at, year] : seen) {
    const std::string text = yearText(year, true);
    const auto place = places.takeBeside(at, ring_radius + label_gap / 3,
                                         measures_.width(text, PaperFont::small), textLine());
    if (place) page.texts.push_back({place->left, place->top, PaperFont::small, text});
  }
}

}  // namespace depcalc
