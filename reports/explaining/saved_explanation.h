// Why the amounts of a saved asset are what they are.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "explain/explanation.h"
#include "reports/asset.h"

namespace depcalc {

/// Which amounts of an asset are meant.
enum class AmountsShown {
  in_reports,   ///< until its disposal, and by the units that it produced
  in_register,  ///< as they were saved, whether it has left or not
};

/// The explanations of an asset's amounts by `method`, a code. By its own method each says where
/// another amount was saved; it is the calculation that is explained. Empty where the saved values
/// cannot be calculated with.
std::optional<std::vector<Explanation>> explainSaved(const ReportAsset& asset,
                                                     std::string_view method, AmountsShown shown);

/// The same of one fiscal year, also of one in which nothing is taken.
std::optional<Explanation> explainSavedYear(const ReportAsset& asset, std::string_view method,
                                            AmountsShown shown, int fiscal_year);

}  // namespace depcalc
