// A chart as a picture: what stands where.
#pragma once

#include <cstddef>
#include <optional>

#include "reports/chart.h"
#include "reports/charts/chart_plot.h"
#include "reports/pages/paper.h"

namespace depcalc {

/// What is shown besides the lines.
struct ChartView {
  std::optional<std::size_t> year;  ///< whose values stand with the names, from the first year
  bool titled = false;              ///< the chart's title stands above it
};

/// The smallest areas in which every text has its place, in twips: of one that is high, and of one
/// in which the plots stand beside each other.
inline constexpr PaperArea least_chart{4300, 5700};
inline constexpr PaperArea wide_chart{7500, 3600};

/// Book values and amounts by every method: below each other, or beside each other where the area
/// is much wider than high. Nothing lies upon anything else.
class ChartLayout {
 public:
  /// `chart` has series. The area is at least as large as `least_chart`; as `wide_chart`, where it
  /// is that much wider than high.
  ChartLayout(const Chart& chart, PaperArea area, const PaperMeasures& measures,
              const ChartView& view = {});

  [[nodiscard]] const PaperPage& page() const { return page_; }
  /// The fiscal year nearest to `x`, counted from the chart's first.
  [[nodiscard]] std::size_t yearAt(double x) const;

 private:
  void drawPlots(const Chart& chart, double y, const PaperMeasures& measures,
                 std::optional<std::size_t> year);

  PaperArea area_;
  PaperPage page_;
  std::vector<std::vector<double>> years_;  ///< places of the years in each plot across the area
};

}  // namespace depcalc
