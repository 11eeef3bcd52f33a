// The same asset by other conventions, useful lives and salvage values.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/method_results.h"
#include "reports/asset.h"

namespace depcalc {

/// Which of its values is another one.
enum class WhatIfField : std::uint8_t { none, convention, life, salvage };

/// What a method comes to; nothing of a schedule that cannot be calculated.
struct WhatIfFigures {
  std::optional<Currency> first_year;
  std::optional<Currency> total;
};

/// The asset with one value changed.
struct WhatIfRow {
  WhatIfField changed = WhatIfField::none;
  std::string text;  ///< the value as the entry form takes it: "Half Year", "7", "3845.00"
  std::array<WhatIfFigures, scheduled_methods.size()> methods;  ///< as in `scheduled_methods`
  Currency rate;  ///< per unit of production; 0 without a capacity
};

/// The asset as it is; under the other conventions; with the whole years of life up to two below
/// and above its own that the form takes, 1 to 50; and with salvage values of nothing, 5, 10 and 20
/// % of its basis, to the cent. Values that are the asset's own do not come again. All by the
/// calculations of today, whatever was saved.
std::vector<WhatIfRow> whatIfRows(const SavedAsset& asset);

/// "5 years", "Half Year", "No salvage", "Salvage 3,845.00", "As it is".
std::string whatIfCaption(const WhatIfRow& row);

}  // namespace depcalc
