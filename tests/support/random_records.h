// Random assets as records.
#pragma once

#include <string>

#include "engine/calculate_dep.h"
#include "tests/support/random_assets.h"
#include "values/number_text.h"

namespace depcalc::test {

inline void fill(CalculateDep& record, const SomeAsset& asset) {
  record.AssetStartDate(asset.placed_in_service);
  record.FYEnd(asset.fiscal_year_end);
  record.AssetBasis(asset.basis);
  record.AssetSalvage(asset.salvage);
  record.DepRecovery(asset.life);
  record.DepConvention(std::to_string(asset.convention));
  record.AssetProdCap(numberToText(asset.capacity));
}

}  // namespace depcalc::test
