// Assets in a company in memory, without a user who enters them.
#pragma once

#include "DepCalc/asset_store.h"
#include "host/memory/memory_host.h"

namespace depcalc::testing {

/// Adds assets "A-1", "A-2", … as the form saves them without comparing.
inline void addAssets(const std::shared_ptr<MemoryCompanyFile>& file, int count) {
  StoreState state;
  state.m_orvcf = file;
  AssetStore store(state, [] { return Date::strict(2024, 6, 15); });
  store.open();
  for (int n = 1; n <= count; ++n) {
    state.CurrentRecord = std::make_shared<CalculateDep>();
    CalculateDep& asset = *state.CurrentRecord;
    asset.RecIndex("0");
    asset.AssetID("A-" + std::to_string(n));
    asset.AssetStartDate(Date::strict(2023, 7, 1));
    asset.FYEnd(Date::strict(2023, 12, 31));
    asset.AssetBasis(Currency::fromDouble(10000));
    asset.AssetProdCap("0");
    asset.DepConvention("0");
    asset.DepRecovery(5);
    std::int16_t index = 0;
    store.WriteData(index);
  }
}

}  // namespace depcalc::testing
