// Charts as pictures for other programs.
#pragma once

#include <QByteArray>
#include <QImage>

#include "reports/chart.h"

namespace depcalc::desktop {

/// The chart, which has series, on white paper, with two pixels for each that a usual screen has.
[[nodiscard]] QImage chartImage(const Chart& chart);
[[nodiscard]] QByteArray chartAsPng(const Chart& chart);
[[nodiscard]] QByteArray chartAsSvg(const Chart& chart);

/// Puts the picture onto the clipboard, or the figures as a table for spreadsheets.
void copyChartPicture(const Chart& chart);
void copyChartTable(const Chart& chart);
/// Both: whoever pastes takes what it knows.
void copyChart(const Chart& chart);

}  // namespace depcalc::desktop
