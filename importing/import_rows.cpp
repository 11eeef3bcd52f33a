#include "importing/import_rows.h"

#include <algorithm>
#include <array>
#include <utility>
#include <variant>

namespace depcalc {

void ImportRows::judge(std::size_t index, const FileRow& as_read, const RowJudge& judge,
                       Date today) {
  ImportRow& row = rows_[index];
  CalculateDep asset;
  row.problems = judge.judge(as_read, row.edits, asset);
  row.duplicates.clear();
  row.id = asset.AssetID();
  row.serial = asset.ASerial();
  row.line = as_read.line;
  row.differences = 0;
  row.distant = false;
  if (!row.problems.empty()) return;
  row.distant = refusedByDateLimit(asset.AssetStartDate(), today).has_value();
  const auto amounts = judge.compare(as_read, asset);
  row.differences = static_cast<std::size_t>(
      std::count_if(amounts.begin(), amounts.end(),
                    [](const ComparedAmount& amount) { return amount.differs(); }));
}

/// Whoever is left out has no ID that another could have again.
void ImportRows::findDuplicates() {
  duplicates_.forgetLines();
  for (ImportRow& row : rows_) {
    row.duplicates.clear();
    if (row.isLeftOut()) continue;
    for (RowProblem& problem : duplicates_.problemsOf(row.id, row.serial, row.line)) {
      const auto use = useNamed(problem.column);
      row.duplicates.push_back({std::get<AssetColumn>(*use), std::move(problem.message)});
    }
    if (passesAsNew(row)) duplicates_.add(row.id, row.serial, row.line);
  }
}

RowStatus ImportRows::statusOf(std::size_t index) const {
  const ImportRow& row = rows_[index];
  if (row.isLeftOut()) return RowStatus::left_out;
  if (!row.problems.empty()) return RowStatus::problem;
  return passesAsNew(row) ? RowStatus::ready : RowStatus::duplicate;
}

ImportCounts ImportRows::counts() const {
  ImportCounts counts;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const ImportRow& row = rows_[i];
    const RowStatus status = statusOf(i);
    const bool ready = status == RowStatus::ready;
    counts.ready += ready;
    counts.problems += status == RowStatus::problem;
    counts.left_out += status == RowStatus::left_out;
    counts.duplicates += status == RowStatus::duplicate;
    counts.repeated += ready && !row.duplicates.empty();
    counts.differing += ready && row.differences > 0;
    counts.distant += ready && row.distant;
  }
  return counts;
}

std::vector<std::uint32_t> ImportRows::inOrder(RowFilter filter) const {
  std::array<std::vector<std::uint32_t>, 4> ranks;
  for (std::uint32_t i = 0; i < rows_.size(); ++i) {
    const ImportRow& row = rows_[i];
    const bool problem = !row.isLeftOut() && !row.problems.empty();
    const bool passes = filter == RowFilter::all || (filter == RowFilter::problems && problem) ||
                        (filter == RowFilter::duplicates && !row.duplicates.empty()) ||
                        (filter == RowFilter::differences && row.differences > 0);
    if (!passes) continue;
    ranks.at(problem ? 0 : !row.duplicates.empty() ? 1 : row.differences > 0 ? 2 : 3).push_back(i);
  }
  std::vector<std::uint32_t> order;
  order.reserve(rows_.size());
  for (const auto& rank : ranks) order.insert(order.end(), rank.begin(), rank.end());
  return order;
}

}  // namespace depcalc
