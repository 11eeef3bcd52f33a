#include "reports/rollforward.h"

#include "reports/proof.h"

namespace depcalc {
namespace {

enum : std::size_t {
  cost_opening = 1,
  additions,
  disposals,
  cost_closing,
  accumulated_opening,
  depreciation,
  accumulated_disposals,
  accumulated_closing,
  book_value_opening,
  book_value_closing
};

std::vector<Column> columns(Grouping grouping) {
  const char* const captions[] = {"", "Department", "Method", "Convention"};
  return {{"group", captions[static_cast<std::size_t>(grouping)], ColumnKind::text},
          {"cost_opening", "Cost, opening", ColumnKind::amount},
          {"additions", "Additions", ColumnKind::amount},
          {"disposals", "Disposals", ColumnKind::amount},
          {"cost_closing", "Cost, closing", ColumnKind::amount},
          {"accumulated_opening", "Accumulated, opening", ColumnKind::amount},
          {"depreciation", "Depreciation", ColumnKind::amount},
          {"accumulated_disposals", "Accumulated on disposals", ColumnKind::amount},
          {"accumulated_closing", "Accumulated, closing", ColumnKind::amount},
          {"book_value_opening", "Book value, opening", ColumnKind::amount},
          {"book_value_closing", "Book value, closing", ColumnKind::amount}};
}

/// What a fiscal year moves. The closing is counted from what is there then, not from the opening,
/// so that the row can prove itself.
struct Movement {
  Currency cost_opening, additions, disposals, cost_closing;
  Currency accumulated_opening, depreciation, accumulated_disposals, accumulated_closing;

  void add(const ReportAsset& asset, int year) {
    if (asset.firstYear() > year || !asset.isNotGoneBefore(year)) return;
    const bool is_new = asset.firstYear() == year;
    const bool goes = asset.isDisposedIn(year);
    (is_new ? additions : cost_opening) += asset.saved().basis;
    (goes ? disposals : cost_closing) += asset.saved().basis;
    if (!is_new) accumulated_opening += asset.accumulated(year - 1);
    depreciation += asset.amount(year);
    (goes ? accumulated_disposals : accumulated_closing) += asset.accumulated(year);
  }
};

void addRow(Table& table, const std::string& group, const Movement& moved) {
  table.add({table.text(group), moved.cost_opening, moved.additions, moved.disposals,
             moved.cost_closing, moved.accumulated_opening, moved.depreciation,
             moved.accumulated_disposals, moved.accumulated_closing,
             moved.cost_opening - moved.accumulated_opening,
             moved.cost_closing - moved.accumulated_closing});
}

bool rollsForward(std::span<const Cell> row) {
  const auto amount = [&](std::size_t column) { return amountIn(row, column); };
  return amount(cost_opening) + amount(additions) - amount(disposals) == amount(cost_closing) &&
         amount(accumulated_opening) + amount(depreciation) - amount(accumulated_disposals) ==
             amount(accumulated_closing);
}

bool leavesBookValue(std::span<const Cell> row) {
  const auto amount = [&](std::size_t column) { return amountIn(row, column); };
  return amount(cost_opening) - amount(accumulated_opening) == amount(book_value_opening) &&
         amount(cost_closing) - amount(accumulated_closing) == amount(book_value_closing);
}

/// Without groups the total alone is told, of a row that nobody sees.
Table totalAlone(const Table& all) {
  Table table(all.columns());
  table.addTotal(std::vector<Cell>(all.total()), "Total");
  return table;
}

}  // namespace

Report rollforwardReport(const RegisterOfAssets& assets, int year, Grouping grouping) {
  Table table(columns(grouping));
  Movement whole;
  for (const ReportAsset& asset : assets.assets) whole.add(asset, year);
  for (const auto& [group, members] : groupsOf(assets, grouping)) {
    Movement moved;
    for (const std::size_t i : members) moved.add(assets.assets[i], year);
    addRow(table, groupName(group), moved);
  }
  if (grouping == Grouping::none) addRow(table, "", whole);
  table.addTotal("Total");

  Report report{.title = "Roll-forward, " + fiscalYearName(year),
                .covers = coverLine(assets, periodOf(assets, year)),
                .tables = {grouping == Grouping::none ? totalAlone(table) : std::move(table)}};
  prove(report,
        "opening + additions - disposals = closing, of cost and of accumulated depreciation",
        rollsForward);
  prove(report, "cost - accumulated depreciation = book value", leavesBookValue);
  return report;
}

}  // namespace depcalc
