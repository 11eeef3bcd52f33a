#include "desktop/reports/pointed_amount.h"

#include <algorithm>
#include <string_view>

namespace depcalc::desktop {
namespace {

/// The whole number in the column of that name; nothing where the table has none.
std::optional<std::int32_t> wholeIn(const Table& table, std::size_t row, std::string_view name) {
  const std::vector<Column>& columns = table.columns();
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [name](const Column& at) { return at.name == name; });
  if (found == columns.end()) return std::nullopt;
  const Cell& cell = table.row(row)[static_cast<std::size_t>(found - columns.begin())];
  const auto* const number = std::get_if<std::int32_t>(&cell);
  return number == nullptr ? std::nullopt : std::optional(*number);
}

/// Of a report whose columns are years, or of which a whole page is of one.
std::optional<int> yearOf(const ReportDesk& desk, const Column& column) {
  if (column.kind != ColumnKind::amount) return std::nullopt;
  if (desk.kind() == ReportKind::schedule) return desk.year();
  const std::vector<int> years = desk.years();
  const auto named = [&](int year) { return column.name == fiscalYearName(year); };
  const auto found = std::find_if(years.begin(), years.end(), named);
  return found == years.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

std::optional<PointedAmount> pointedAmount(const ReportDesk& desk, const Report& report,
                                           std::size_t table, std::size_t row, std::size_t column) {
  const Table& of = report.tables[table];
  if (desk.kind() == ReportKind::asset) {
    return PointedAmount{desk.asset(), wholeIn(of, row, "fiscal_year")};
  }
  const auto number = wholeIn(of, row, "n");
  if (!number) return std::nullopt;
  return PointedAmount{*number, yearOf(desk, of.columns()[column])};
}

}  // namespace depcalc::desktop
