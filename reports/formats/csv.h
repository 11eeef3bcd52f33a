// Reports as CSV files.
#pragma once

#include <string>

#include "reports/table.h"
#include "values/data_text.h"

namespace depcalc {

/// The data table of `report`: its columns' names, its rows, and its total with "total" in the
/// first column. Texts are written by `fields`, which guard them against being taken for formulas.
std::string csvReport(const Report& report, CsvFields fields);

}  // namespace depcalc
