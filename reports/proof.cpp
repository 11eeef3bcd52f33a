#include "reports/proof.h"

namespace depcalc {
namespace {

/// The sums over the subtotals.
std::vector<Cell> sumOfGroups(const Table& table) {
  Table subtotals(table.columns());
  for (const RowGroup& group : table.groups()) subtotals.add(group.total);
  subtotals.addTotal({});
  return subtotals.total();
}

}  // namespace

Currency amountIn(std::span<const Cell> row, std::size_t column) {
  const auto* amount = std::get_if<Currency>(&row[column]);
  return amount == nullptr ? Currency() : *amount;
}

void prove(Report& report, std::string statement, const RowProof& holds) {
  const Table& table = report.tables[report.data_table];
  const auto check = [&](bool proved, const std::string& where) {
    if (!proved) report.disproofs.push_back(where + " does not satisfy: " + statement);
  };
  for (std::size_t i = 0; i < table.rowCount(); ++i) {
    check(holds(table.row(i)), "Row " + std::to_string(i + 1));
  }
  for (const RowGroup& group : table.groups()) check(holds(group.total), "\"" + group.label + "\"");
  if (!table.total().empty()) check(holds(table.total()), "The total");
  if (!table.groups().empty() && !table.total().empty() && sumOfGroups(table) != table.total()) {
    report.disproofs.emplace_back("The subtotals do not sum up to the total.");
  }
  report.proofs.push_back(std::move(statement));
}

}  // namespace depcalc
