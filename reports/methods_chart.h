// The chart of an asset: every method side by side.
#pragma once

#include "reports/asset.h"
#include "reports/chart.h"
#include "reports/table.h"

namespace depcalc {

/// What every method comes to for the values of `asset`, as calculated today: the amounts that the
/// comparison shows, from the first fiscal year to the last in which one of them takes something,
/// and the basis less what was taken so far. By units of production where units were entered, up to
/// the last year that has some. A method that cannot be calculated is left out; no series at all
/// where none can.
///
/// Disposals do not count: the chart compares what the methods would take.
Chart methodsChart(const ReportAsset& asset);

/// The same figures as a table: a row for each fiscal year, two columns for each method.
Report chartReport(const Chart& chart);

}  // namespace depcalc
