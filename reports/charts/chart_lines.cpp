#include "reports/charts/chart_lines.h"

#include <array>
#include <cmath>
#include <numbers>

#include "engine/method.h"

namespace depcalc {
namespace {

constexpr double usual_width = 24;   // twips
constexpr double chosen_width = 48;  // twips
constexpr int corners_of_a_circle = 20;

struct Look {
  PaperTone tone;
  std::array<double, 4> dashes;  ///< in widths of the usual line; all 0: whole
  int corners;
  double turn;    ///< of the first corner, clockwise from the top, in parts of a whole turn
  double radius;  ///< twips
};

/// In the order of `methods`.
constexpr std::array<Look, methods.size()> looks{
    {{PaperTone::first_line, {}, corners_of_a_circle, 0, 46},
     {PaperTone::second_line, {8, 3, 8, 3}, 4, 0.125, 56},
     {PaperTone::third_line, {3, 2.5, 3, 2.5}, 3, 0, 60},
     {PaperTone::fourth_line, {8, 2.5, 2, 2.5}, 4, 0, 60}}};

const Look& lookOf(const ChartSeries& series) {
  std::size_t method = 0;
  while (method + 1 < methods.size() && methods[method].code != series.code) ++method;
  return looks[method];
}

std::vector<PaperPoint> polygon(PaperPoint centre, double radius, int corners, double turn) {
  std::vector<PaperPoint> points;
  for (int i = 0; i < corners; ++i) {
    const double angle = 2 * std::numbers::pi * (turn + static_cast<double>(i) / corners);
    points.push_back({centre.x + radius * std::sin(angle), centre.y - radius * std::cos(angle)});
  }
  return points;
}

}  // namespace

LineLook lineLook(const ChartSeries& series) {
  const Look& look = lookOf(series);
  LineLook line{look.tone, {}, series.chosen ? chosen_width : usual_width};
  for (const double dash : look.dashes) {
    if (dash > 0) line.dashes.push_back(dash * usual_width);
  }
  return line;
}

PaperStroke seriesStroke(const ChartSeries& series, std::vector<PaperPoint> points) {
  const LineLook look = lineLook(series);
  return {
      .points = std::move(points), .tone = look.tone, .width = look.width, .dashes = look.dashes};
}

PaperStroke seriesMark(const ChartSeries& series, PaperPoint centre, std::string says) {
  const Look& look = lookOf(series);
  return {.points = polygon(centre, look.radius, look.corners, look.turn),
          .tone = look.tone,
          .filled = true,
          .says = std::move(says)};
}

PaperStroke ring(PaperPoint centre) {
  std::vector<PaperPoint> points = polygon(centre, ring_radius, corners_of_a_circle, 0);
  points.push_back(points.front());
  return {.points = std::move(points), .tone = PaperTone::mark, .width = 18};
}

}  // namespace depcalc
