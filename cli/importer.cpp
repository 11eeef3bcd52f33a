#include "cli/importer.h"

#include "importing/asset_saving.h"

namespace depcalc {

ImportedRows readRows(AssetReader& reader, Date today, Duplicates* duplicates,
                      const std::function<void(const RowProblem&)>& report) {
  using Outcome = AssetReader::Outcome;
  ImportedRows rows;
  const auto reportAll = [&](const std::vector<RowProblem>& problems) {
    for (const RowProblem& problem : problems) report(problem);
  };
  rows.bad_header = !reader.begin();
  reportAll(reader.problems());
  while (!rows.bad_header) {
    auto asset = std::make_shared<CalculateDep>();
    const Outcome outcome = reader.next(*asset);
    if (outcome == Outcome::end || outcome == Outcome::unreadable) break;
    std::vector<RowProblem> twice;
    if (duplicates != nullptr) {
      twice = duplicates->problemsOf(asset->AssetID(), asset->ASerial(), reader.line());
      duplicates->add(asset->AssetID(), asset->ASerial(), reader.line());
    }
    if (outcome == Outcome::problems || !twice.empty()) {
      if (!twice.empty()) ++rows.duplicate_rows;
      if (++rows.bad_rows > most_reported_rows) continue;
      reportAll(reader.problems());
      reportAll(twice);
      continue;
    }
    ++rows.good_rows;
    if (refusedByDateLimit(asset->AssetStartDate(), today)) {
      rows.distant_lines.push_back(reader.line());
    }
    if (rows.assets.size() < most_assets) rows.assets.push_back(std::move(asset));
  }
  return rows;
}

}  // namespace depcalc
