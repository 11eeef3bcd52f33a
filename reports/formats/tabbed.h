// Reports as spreadsheets take them from the clipboard.
#pragma once

#include <string>

#include "reports/table.h"

namespace depcalc {

/// The data table of `report` in rows that end in "\n", fields between tabs, below its captions:
/// values as in its CSV, guarded against being taken for formulas; a field with a tab, a line end
/// or a quote stands between quotes.
std::string tabbedReport(const Report& report);

}  // namespace depcalc
