// What the calculations come to today for an asset's saved values.
#pragma once

#include <optional>

#include "engine/method_results.h"
#include "reports/asset.h"

namespace depcalc {

/// The four calculations for the values of `asset`. A schedule that cannot be calculated is empty;
/// none where nothing can be: a life that no schedule has, a convention that is no number.
std::optional<MethodResults> calculatedToday(const ReportAsset& asset);

/// The amount of the year `index` years after the first in a calculated schedule; 0 beyond it.
Currency amountAt(const std::vector<Currency>& amounts, std::size_t index);

}  // namespace depcalc
