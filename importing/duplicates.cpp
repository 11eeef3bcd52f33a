#include "importing/duplicates.h"

#include "importing/asset_columns.h"

namespace depcalc {

Duplicates::Duplicates(CompanyAssets& company) {
  const std::int32_t count = company.assetCount();
  for (std::int32_t i = 1; i <= count; ++i) {
    const CalculateDepPtr asset = company.asset(i);
    const std::string owner = "Asset " + std::to_string(i) + " of the register";
    if (!asset->AssetID().empty()) ids_.emplace(asset->AssetID(), owner);
    if (!asset->ASerial().empty()) serials_.emplace(asset->ASerial(), owner);
  }
}

std::vector<RowProblem> Duplicates::problemsOf(const CalculateDep& asset, std::size_t line) {
  std::vector<RowProblem> problems;
  const auto look = [&](Owners& owners, const std::string& text, AssetColumn column,
                        const char* what) {
    if (text.empty()) return;
    const auto [owner, is_new] = owners.emplace(text, "Line " + std::to_string(line));
    if (is_new) return;
    problems.push_back({line, std::string(nameOf(column)),
                        owner->second + " already has this " + what + ".", text});
  };
  look(ids_, asset.AssetID(), AssetColumn::id, "ID");
  look(serials_, asset.ASerial(), AssetColumn::serial, "serial number");
  return problems;
}

}  // namespace depcalc
