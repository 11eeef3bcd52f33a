#include "cli/deletion.h"

#include <algorithm>

#include "DepCalc/saved_types.h"
#include "register/register_array.h"

namespace depcalc {
namespace {

/// The register's array: the assets and an empty slot behind them.
CalculateDepArray allAssets(Company& company) {
  CalculateDepArray assets;
  const std::int32_t count = company.assetCount();
  for (std::int32_t i = 1; i <= count; ++i) assets.push_back(company.asset(i));
  assets.emplace_back();
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
    if (!wrong.empty()) return wrong.front() + " Deleting the asset would lose that value";
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> deleteAsset(Company& company, std::int32_t number) {
  if (auto loss = whatWouldBeLost(company, number)) return loss;
  return company.changeAtOnce([&] {
    company.store().open();
    CalculateDepArray assets = allAssets(company);
    const std::int16_t index = takeOut(assets, number, company.assetCount());
    company.store().DeleteRecord(assets, index);
    company.units().assetDeleted(number);
  });
}

}  // namespace depcalc
