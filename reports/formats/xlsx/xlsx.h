// Reports as spreadsheets.
#pragma once

#include <string>

#include "reports/table.h"

namespace depcalc {

/// All of `report` as an Excel workbook, a sheet for each table: dates are dates, amounts are
/// numbers, texts stay texts whatever they begin with. Totals are formulas that have their values.
/// The captions stay in sight and are printed on every page. Where that fails, `trouble` says why
/// in the system's words and nothing is answered. Dates before March 1900, which spreadsheets count
/// differently, are texts.
std::string xlsxReport(const Report& report, std::string& trouble);

}  // namespace depcalc
