// How a chart tells its lines apart: by tone, dashes and marks, none of them alone.
#pragma once

#include <string>
#include <vector>

#include "reports/chart.h"
#include "reports/pages/paper.h"

namespace depcalc {

/// Of a series, by its method: the same in every chart.
struct LineLook {
  PaperTone tone;
  std::vector<double> dashes;
  double width;  ///< twips; that of the chosen method is heavier
};
LineLook lineLook(const ChartSeries& series);

/// A line through `points` in the look of `series`.
PaperStroke seriesStroke(const ChartSeries& series, std::vector<PaperPoint> points);

/// The mark of `series` around `centre`: a circle, a square, a triangle or a diamond. `says` is
/// what it stands for.
PaperStroke seriesMark(const ChartSeries& series, PaperPoint centre, std::string says = {});

/// A ring where two lines cross.
inline constexpr double ring_radius = 75;  // twips
PaperStroke ring(PaperPoint centre);

}  // namespace depcalc
