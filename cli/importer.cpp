#include "cli/importer.h"

#include "engine/method_results.h"

namespace depcalc {

ImportedRows readRows(AssetReader& reader, const std::function<void(const RowProblem&)>& report) {
  using Outcome = AssetReader::Outcome;
  ImportedRows rows;
  const auto reportAll = [&] {
    for (const RowProblem& problem : reader.problems()) report(problem);
    rows.any_problem = rows.any_problem || !reader.problems().empty();
  };
  const bool begun = reader.begin();
  reportAll();
  if (!begun) return rows;
  while (true) {
    auto asset = std::make_shared<CalculateDep>();
    const Outcome outcome = reader.next(*asset);
    if (outcome == Outcome::end || outcome == Outcome::unreadable) return rows;
    reportAll();
    if (outcome != Outcome::asset) continue;
    ++rows.good_rows;
    if (rows.assets.size() < most_assets) rows.assets.push_back(std::move(asset));
  }
}

void calculateChosen(CalculateDep& asset) {
  if (asset.DepMethod().empty()) return;
  MethodResults results;
  calculateAllMethods(asset, results);
  chooseMethod(asset, std::string(asset.DepMethod()), results);
}

std::optional<std::string> saveAssets(Company& company, const std::vector<CalculateDepPtr>& assets,
                                      bool keep, const std::function<void(std::size_t)>& reached) {
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
