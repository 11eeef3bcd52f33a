#include "reports/grouping.h"

#include "values/display_format.h"

namespace depcalc {

std::string_view groupOf(const ReportAsset& asset, Grouping grouping) {
  switch (grouping) {
    case Grouping::department:
      return asset.saved().department;
    case Grouping::method:
      return asset.method();
    case Grouping::convention:
      return asset.convention();
    default:
      return {};
  }
}

std::map<std::string, std::vector<std::size_t>> groupsOf(const RegisterOfAssets& assets,
                                                         Grouping grouping) {
  std::map<std::string, std::vector<std::size_t>> groups;
  if (grouping == Grouping::none) return groups;
  for (std::size_t i = 0; i < assets.assets.size(); ++i) {
    groups[std::string(groupOf(assets.assets[i], grouping))].push_back(i);
  }
  return groups;
}

std::string groupName(const std::string& group) { return group.empty() ? "(none)" : group; }

std::string countedAssets(std::size_t count) {
  return formatWhole(static_cast<double>(count)) + (count == 1 ? " asset" : " assets");
}

void addTotals(Table& table, const RegisterOfAssets& assets,
               const std::vector<std::size_t>& positions, Grouping grouping) {
  std::map<std::string, std::vector<std::size_t>> rows;
  for (std::size_t row = 0; grouping != Grouping::none && row < positions.size(); ++row) {
    rows[std::string(groupOf(assets.assets[positions[row]], grouping))].push_back(row);
  }
  for (auto& [group, members] : rows) {
    const std::string name = groupName(group);
    std::string label = name + ", " + countedAssets(members.size());
    table.addGroup({name, std::move(members), std::move(label), {}});
  }
  table.addTotal("Total, " + countedAssets(positions.size()));
}

}  // namespace depcalc
