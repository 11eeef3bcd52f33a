#include "cli/deletion.h"

#include <vector>

namespace depcalc {
namespace {

/// What the register hands to the store: the assets that stay and an empty slot behind them, or
/// two empty slots when none stays.
std::vector<CalculateDepPtr> remainingAssets(Company& company, std::int32_t number) {
  const std::int32_t count = company.assetCount();
  std::vector<CalculateDepPtr> assets;
  for (std::int32_t i = 1; i <= count; ++i) {
    if (i != number) assets.push_back(company.asset(i));
  }
  assets.resize(count == 1 ? 2 : static_cast<std::size_t>(count));
  return assets;
}

}  // namespace

std::optional<std::string> deleteAsset(Company& company, std::int32_t number) {
  return company.changeAtOnce([&] {
    company.store().open();
    const auto assets = remainingAssets(company, number);
    // The only asset's deletion is always announced with index 1.
    const std::int32_t index = company.assetCount() == 1 ? 1 : number - 1;
    company.store().DeleteRecord(assets, static_cast<std::int16_t>(index));
  });
}

}  // namespace depcalc
