// The calculator's current record as reports see an asset.
#pragma once

#include "engine/calculate_dep.h"
#include "reports/asset.h"

namespace depcalc::desktop {

/// The record's values as they are now, saved or not. Its number is the one that it has in the
/// register, 0 where that is no number; units produced are the host's, so there are none.
[[nodiscard]] SavedAsset assetInView(const CalculateDep& record);

}  // namespace depcalc::desktop
