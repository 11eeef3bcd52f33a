// The whole register, read for its screen.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "DepCalc/asset_store.h"

namespace depcalc {

/// Refreshes the summary, answers it, and fills `assets`, which has a slot more than there are
/// assets, with what `read` gives for each index from 1. What was answered before an error stays.
void readRegister(AssetStore& store, StoreState& state,
                  const std::function<CalculateDepPtr(std::int16_t index)>& read,
                  std::vector<CalculateDepPtr>& assets, std::int16_t& start_year, double& years,
                  std::int16_t& count);

}  // namespace depcalc
