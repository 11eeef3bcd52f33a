#include "reports/todays_calculation.h"

#include "common/trapped.h"

namespace depcalc {
namespace {

/// No schedule runs longer than the calendar.
constexpr double longest_life = 9999;

void fill(CalculateDep& asset, const SavedAsset& saved) {
  asset.AssetStartDate(saved.placed_in_service);
  asset.AssetBasis(saved.basis);
  asset.AssetSalvage(saved.salvage);
  asset.AssetProdCap(saved.capacity);
  asset.DepRecovery(saved.life);
  asset.FYEnd(saved.fiscal_year_end);
  asset.DepConvention(saved.convention);
}

}  // namespace

std::optional<MethodResults> calculatedToday(const ReportAsset& asset) {
  const SavedAsset& saved = asset.saved();
  if (saved.life < 0 || saved.life > longest_life) return std::nullopt;
  MethodResults results;
  const bool done = trapped("DepCalc::Report", [&] {
    CalculateDep calculated;
    fill(calculated, saved);
    calculateAllMethods(calculated, results);
  });
  return done ? std::optional(std::move(results)) : std::nullopt;
}

Currency amountAt(const std::vector<Currency>& amounts, std::size_t index) {
  return index < amounts.size() ? amounts[index] : Currency();
}

}  // namespace depcalc
