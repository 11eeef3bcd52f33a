// What says which line is which in a chart.
#pragma once

#include <optional>

#include "reports/chart.h"
#include "reports/pages/paper.h"

namespace depcalc {

/// Puts the names of the series at the top of `page`, as wide as `width` twips, the chosen one's in
/// bold, from `y` on. With a `year`, counted from the chart's first, each has a line of its own
/// with its book value and its amount in that year. Names that have no room are their codes.
/// Returns where it ends.
double addLegend(PaperPage& page, const Chart& chart, std::optional<std::size_t> year, double y,
                 double width, const PaperMeasures& measures);

}  // namespace depcalc
