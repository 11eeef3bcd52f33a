#include "engine/method_batch.h"

namespace depcalc {

void MethodBatch::calculate(std::span<CalculateDep* const> assets) {
  assets_.assign(assets.begin(), assets.end());
  inputs_.clear();
  for (const CalculateDep* asset : assets_) inputs_.push_back(asset->scheduled());
  batch_.calculate(inputs_);
}

void MethodBatch::giveAllMethods(std::size_t index, MethodResults& results) {
  CalculateDep& asset = *assets_[index];
  const auto calculated = batch_.of(index);
  if (!calculated || asset.scheduled() != inputs_[index]) {
    return calculateAllMethods(asset, results);
  }
  asset.StraightLine(*calculated, results.straight_line);
  asset.SumofYearsDigits(*calculated, results.sum_of_years_digits);
  asset.DoubleDecliningBalance(*calculated, results.double_declining_balance);
  results.rate = asset.UnitsofProduction(*calculated);
}

void MethodBatch::giveChosen(std::size_t index) {
  CalculateDep& asset = *assets_[index];
  if (asset.DepMethod().empty()) return;
  giveAllMethods(index, results_);
  chooseMethod(asset, std::string(asset.DepMethod()), results_);
}

}  // namespace depcalc
