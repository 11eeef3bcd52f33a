#include "reports/years.h"

#include <algorithm>
#include <numeric>

#include "reports/proof.h"

namespace depcalc {
namespace {

constexpr std::size_t column_earlier = 4;

std::vector<Column> columns(YearRange range) {
  std::vector<Column> columns{{"n", "N", ColumnKind::whole},
                              {"id", "Asset ID", ColumnKind::text},
                              {"name", "Name", ColumnKind::text},
                              {"method", "Method", ColumnKind::text},
                              {"earlier", "Earlier", ColumnKind::amount, true}};
  for (int year = range.from; year <= range.to; ++year) {
    columns.push_back({fiscalYearName(year), fiscalYearName(year), ColumnKind::amount});
  }
  columns.push_back({"later", "Later", ColumnKind::amount, true});
  columns.push_back({"total", "Total", ColumnKind::amount});
  return columns;
}

void addRow(Table& table, const ReportAsset& asset, YearRange range, std::vector<Cell>& row) {
  const SavedAsset& saved = asset.saved();
  row.assign({saved.number, table.text(saved.id), table.text(saved.name),
              table.text(asset.method()), asset.accumulated(range.from - 1)});
  for (int year = range.from; year <= range.to; ++year) row.emplace_back(asset.amount(year));
  row.emplace_back(asset.amounts(range.to + 1, asset.lastYear()));
  row.emplace_back(asset.allAmounts());
  table.add(row);
}

bool sumsUp(std::span<const Cell> row) {
  Currency sum;
  for (std::size_t i = column_earlier; i + 1 < row.size(); ++i) sum += amountIn(row, i);
  return sum == amountIn(row, row.size() - 1);
}

int inCalendar(int year) { return std::clamp(year, first_report_year, last_report_year); }

}  // namespace

YearRange rangeOfYears(const RegisterOfAssets& assets, std::optional<int> from,
                       std::optional<int> to) {
  const bool empty = assets.assets.empty();
  const int today = assets.years.of(assets.today);
  const int first = from.value_or(empty ? today : inCalendar(assets.start));
  const int last = to.value_or(empty ? today : inCalendar(assets.start + assets.span));
  return {to ? std::min(first, *to) : first, from ? std::max(last, *from) : last};
}

Report yearsReport(const RegisterOfAssets& assets, YearRange range, Grouping grouping) {
  Table table(columns(range));
  std::vector<Cell> row;
  for (const ReportAsset& asset : assets.assets) addRow(table, asset, range, row);
  std::vector<std::size_t> positions(assets.assets.size());
  std::iota(positions.begin(), positions.end(), std::size_t{0});
  addTotals(table, assets, positions, grouping);

  const std::string period = fiscalYearName(range.from) + " to " + fiscalYearName(range.to);
  Report report{.title = "All fiscal years",
                .covers = coverLine(assets, period),
                .tables = {std::move(table)}};
  prove(report, "earlier + the fiscal years + later = total", sumsUp);
  return report;
}

}  // namespace depcalc
