#include "importing/asset_saving.h"

#include "engine/method_results.h"

namespace depcalc {

std::optional<std::string> saveAssets(CompanyAssets& company,
                                      const std::vector<CalculateDepPtr>& assets, bool keep,
                                      const std::function<void(std::size_t)>& reached) {
  const auto save = [&] {
    company.store().open();
    std::size_t saved = 0;
    for (const CalculateDepPtr& asset : assets) {
      calculateChosen(*asset);
      company.store().DepCalcContSaveRecord(asset);
      reached(++saved);
    }
  };
  return company.changeAtOnce(save, keep);
}

}  // namespace depcalc
