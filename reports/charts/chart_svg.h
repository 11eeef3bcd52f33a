// Charts as SVG (Scalable Vector Graphics 1.1, W3C).
#pragma once

#include <string>

#include "reports/chart.h"
#include "reports/pages/paper.h"

namespace depcalc {

enum class SvgUse {
  file,      ///< a picture by itself, on white paper
  in_a_page  ///< an element of an HTML page, on the page's own ground
};

/// The chart, which has series, in an area of that size. Each figure stands in it as the title of
/// its mark, which browsers show under the pointer; what crosses where is its description.
std::string chartSvg(const Chart& chart, PaperArea area, SvgUse use);

/// Rules for pages that show charts: their colours on a dark screen.
std::string chartStyleOnDark();

}  // namespace depcalc
