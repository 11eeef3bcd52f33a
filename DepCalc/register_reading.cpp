#include "DepCalc/register_reading.h"

namespace depcalc {

void readRegister(AssetStore& store, StoreState& state,
                  const std::function<CalculateDepPtr(std::int16_t index)>& read,
                  std::vector<CalculateDepPtr>& assets, std::int16_t& start_year, double& years,
                  std::int16_t& count) {
  store.ReadTableInfo(state.StartYr, state.NumYrs, state.NumAssets, state.FYEnd);
  start_year = state.StartYr;
  years = state.NumYrs;
  count = state.NumAssets;
  for (std::size_t asset = 0; asset + 1 < assets.size(); ++asset) {
    assets[asset] = read(static_cast<std::int16_t>(asset + 1));
  }
}

}  // namespace depcalc
