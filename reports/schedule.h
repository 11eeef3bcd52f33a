// The depreciation schedule: every asset on the books in a fiscal year.
#pragma once

#include <optional>

#include "reports/grouping.h"
#include "reports/register.h"
#include "reports/table.h"

namespace depcalc {

/// The assets that were placed in service by the end of fiscal year `year` and did not leave before
/// it: accumulated depreciation before the year, the year's depreciation, what disposals remove,
/// and the book value after it. `year` is one that reports are for. A sum out of range is error 6.
Report scheduleReport(const RegisterOfAssets& assets, int year, Grouping grouping);

/// The book value after fiscal year `year` as that report has it: the basis less what was taken, 0
/// in the year of the asset's disposal; nothing where the asset is not in the report.
std::optional<Currency> bookValueAfter(const ReportAsset& asset, int year);

}  // namespace depcalc
