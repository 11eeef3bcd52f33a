#include "reports/schedule.h"

#include "reports/proof.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

enum : std::size_t {
  column_basis = 5,
  column_before = 10,
  column_depreciation,
  column_removed,
  column_after,
  column_book_value,
  column_disposed
};

std::vector<Column> columns() {
  return {{"n", "N", ColumnKind::whole},
          {"id", "Asset ID", ColumnKind::text},
          {"name", "Name", ColumnKind::text},
          {"department", "Department", ColumnKind::text, true},
          {"placed_in_service", "In service", ColumnKind::date},
          {"basis", "Basis", ColumnKind::amount},
          {"salvage", "Salvage", ColumnKind::amount, true},
          {"life", "Life", ColumnKind::number},
          {"convention", "Convention", ColumnKind::text},
          {"method", "Method", ColumnKind::text},
          {"before", "Accumulated before", ColumnKind::amount},
          {"depreciation", "Depreciation", ColumnKind::amount},
          {"removed", "Removed by disposal", ColumnKind::amount, true},
          {"after", "Accumulated after", ColumnKind::amount},
          {"book_value", "Book value", ColumnKind::amount},
          {"disposed", "Disposed of", ColumnKind::date, true}};
}

bool isOnTheBooks(const ReportAsset& asset, int year) {
  return asset.firstYear() <= year && asset.isNotGoneBefore(year);
}

void addRow(Table& table, const ReportAsset& asset, int year) {
  const SavedAsset& saved = asset.saved();
  const bool gone = asset.isDisposedIn(year);
  const Currency accumulated = asset.accumulated(year);
  const Currency after = gone ? Currency() : accumulated;
  table.add({saved.number, table.text(saved.id), table.text(saved.name),
             table.text(saved.department), saved.placed_in_service, saved.basis, saved.salvage,
             saved.life, table.text(asset.convention()), table.text(asset.method()),
             asset.accumulated(year - 1), asset.amount(year), gone ? accumulated : Currency(),
             after, *bookValueAfter(asset, year), gone ? Cell(saved.disposed) : Cell()});
}

bool accumulatesWhatItTakes(std::span<const Cell> row) {
  return amountIn(row, column_before) + amountIn(row, column_depreciation) -
             amountIn(row, column_removed) ==
         amountIn(row, column_after);
}

void noteUnscheduled(Report& report, std::size_t count) {
  if (count == 0) return;
  report.notes.push_back(countedAssets(count) + (count == 1 ? " has" : " have") +
                         " no amounts: no method was chosen, or by units of production no units "
                         "were entered.");
}

/// The basis of the assets that are still there at the end of the year, less what was taken, is
/// their book value.
void proveBookValue(Report& report, Currency basis_disposed) {
  const Table& table = report.tables.front();
  const Currency left = amountIn(table.total(), column_basis) -
                        amountIn(table.total(), column_after) - basis_disposed;
  report.proofs.emplace_back(
      "basis - accumulated after - basis of what was disposed of = book value");
  if (left != amountIn(table.total(), column_book_value)) {
    report.disproofs.emplace_back("The total book value is not what is left of the basis.");
  }
}

}  // namespace

std::optional<Currency> bookValueAfter(const ReportAsset& asset, int year) {
  if (!isOnTheBooks(asset, year)) return std::nullopt;
  if (asset.isDisposedIn(year)) return Currency();
  return asset.saved().basis - asset.accumulated(year);
}

Report scheduleReport(const RegisterOfAssets& assets, int year, Grouping grouping) {
  Table table(columns());
  std::vector<std::size_t> positions;
  std::size_t unscheduled = 0;
  Currency basis_disposed;
  for (std::size_t i = 0; i < assets.assets.size(); ++i) {
    const ReportAsset& asset = assets.assets[i];
    if (!isOnTheBooks(asset, year)) continue;
    addRow(table, asset, year);
    positions.push_back(i);
    if (!asset.isScheduled()) ++unscheduled;
    if (asset.isDisposedIn(year)) basis_disposed += asset.saved().basis;
  }
  addTotals(table, assets, positions, grouping);

  Report report{.title = "Depreciation schedule, " + fiscalYearName(year),
                .covers = coverLine(assets, periodOf(assets, year)),
                .tables = {std::move(table)}};
  prove(report, "before + depreciation - removed by disposal = after", accumulatesWhatItTakes);
  proveBookValue(report, basis_disposed);
  noteUnscheduled(report, unscheduled);
  return report;
}

}  // namespace depcalc
