#include "cli/deletion.h"

#include <algorithm>
#include <vector>

#include "DepCalc/saved_types.h"

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

/// Why a deletion would lose something: the assets that move up are saved anew, one that cannot be
/// read whole as far as it was read.
std::optional<std::string> whatWouldBeLost(Company& company, std::int32_t number) {
  const auto table = company.file().OpenTable(asset_table_name);
  const std::int32_t count = company.assetCount();
  for (std::int32_t i = std::max(number - 1, 1); i <= count; ++i) {
    if (i == number) continue;
    const auto wrong = wrongTypesIn(*table, static_cast<std::int16_t>(i));
    if (!wrong.empty()) return wrong.front() + " The deletion would lose that";
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> deleteAsset(Company& company, std::int32_t number) {
  if (auto loss = whatWouldBeLost(company, number)) return loss;
  return company.changeAtOnce([&] {
    company.store().open();
    const auto assets = remainingAssets(company, number);
    // The only asset's deletion is always announced with index 1.
    const std::int32_t index = company.assetCount() == 1 ? 1 : number - 1;
    company.store().DeleteRecord(assets, static_cast<std::int16_t>(index));
  });
}

}  // namespace depcalc
