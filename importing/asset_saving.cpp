#include "importing/asset_saving.h"

#include <algorithm>

#include "engine/method_batch.h"

namespace depcalc {
namespace {

/// As many as a batch calculates at once.
std::vector<CalculateDep*> someOf(const std::vector<CalculateDepPtr>& assets, std::size_t first) {
  std::vector<CalculateDep*> some;
  const std::size_t end = std::min(assets.size(), first + MethodBatch::most);
  for (std::size_t i = first; i < end; ++i) some.push_back(assets[i].get());
  return some;
}

}  // namespace

std::optional<std::string> saveAssets(CompanyAssets& company,
                                      const std::vector<CalculateDepPtr>& assets, bool keep,
                                      const std::function<void(std::size_t)>& reached) {
  const auto save = [&] {
    company.store().open();
    MethodBatch batch;
    for (std::size_t i = 0; i < assets.size(); ++i) {
      if (i % MethodBatch::most == 0) batch.calculate(someOf(assets, i));
      batch.giveChosen(i % MethodBatch::most);
      company.store().DepCalcContSaveRecord(assets[i]);
      reached(i + 1);
    }
  };
  return company.changeAtOnce(save, keep);
}

}  // namespace depcalc
