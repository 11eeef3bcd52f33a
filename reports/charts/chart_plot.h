// One plot of a chart: axes, lines, and where they cross.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/chart.h"
#include "reports/charts/chart_axis.h"
#include "reports/pages/paper.h"

namespace depcalc {

/// Where a plot stands on its page, in twips.
struct PlotPlace {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

/// Draws one kind of the figures of a chart that has series.
class ChartPlot {
 public:
  /// All but `place` and `figures` lives as long as this does, or longer.
  ChartPlot(const Chart& chart, ChartFigures figures, const PlotPlace& place,
            const PaperMeasures& measures);

  /// Twips that the amounts beside the axis take up.
  [[nodiscard]] double labelWidth() const;
  /// So that plots one above the other have their years in one line.
  void setLabelWidth(double width) { label_width_ = width; }

  /// `year`, counted from the chart's first, has a line of its own.
  void draw(PaperPage& page, std::string_view caption, std::optional<std::size_t> year) const;

  [[nodiscard]] double xOf(double year) const;

 private:
  [[nodiscard]] double top() const;
  [[nodiscard]] double bottom() const;
  [[nodiscard]] double left() const { return place_.x + label_width_; }
  [[nodiscard]] double right() const { return place_.x + place_.width; }
  [[nodiscard]] double yOf(double amount) const;
  [[nodiscard]] double textLine() const { return measures_.lineHeight(PaperFont::small); }
  [[nodiscard]] double yearInset() const;
  [[nodiscard]] double yearDistance() const;
  [[nodiscard]] std::string yearText(std::size_t year, bool whole) const;
  void drawAxis(PaperPage& page) const;
  void drawYears(PaperPage& page) const;
  void drawSeries(PaperPage& page, const ChartSeries& series) const;
  void drawCrossings(PaperPage& page) const;
  [[nodiscard]] std::vector<PaperPoint> pointsOf(const ChartSeries& series) const;

  const Chart& chart_;
  ChartFigures figures_;
  PlotPlace place_;
  const PaperMeasures& measures_;
  ChartAxis axis_;
  double label_width_ = 0;
};

}  // namespace depcalc
