#include "reports/methods_chart.h"

#include <algorithm>

#include "common/trapped.h"
#include "engine/method.h"
#include "reports/company_years.h"
#include "reports/todays_calculation.h"

namespace depcalc {
namespace {

/// How many fiscal years there are up to the last with an amount, at least one.
std::size_t yearsTaken(const std::vector<Currency>& amounts) {
  std::size_t years = amounts.size();
  while (years > 1 && amounts[years - 1] == Currency()) --years;
  return years;
}

/// Adds the series unless a book value is beyond all bounds.
void add(Chart& chart, const ReportAsset& asset, const Method& method,
         std::vector<Currency> amounts) {
  ChartSeries series{
      method.code, method.name, {}, std::move(amounts), asset.method() == method.code};
  const bool done = trapped("DepCalc::Chart", [&] {
    Currency book_value = asset.saved().basis;
    for (const Currency amount : series.amounts) series.book_values.push_back(book_value -= amount);
  });
  if (done) chart.series.push_back(std::move(series));
}

void addScheduled(Chart& chart, const ReportAsset& asset, const MethodResults& results) {
  std::size_t years = 0;
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    years = std::max(years, yearsTaken(results.*scheduled.amounts));
  }
  years = std::min(years,
                   static_cast<std::size_t>(std::max(0, last_report_year - asset.firstYear() + 1)));
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    std::vector<Currency> amounts = results.*scheduled.amounts;
    if (amounts.empty() || years == 0) continue;
    amounts.resize(years);
    add(chart, asset, scheduled.method, std::move(amounts));
  }
}

void addUnits(Chart& chart, const ReportAsset& asset, Currency rate) {
  const SavedAsset& saved = asset.saved();
  if (saved.units.empty()) return;
  const AmountsByYear by_year = amountsOfUnits(saved.units, rate, saved.basis - saved.salvage,
                                               asset.firstYear(), last_report_year);
  if (by_year.empty()) return;
  std::vector<Currency> amounts(
      static_cast<std::size_t>(by_year.rbegin()->first - asset.firstYear()) + 1);
  for (const auto& [year, amount] : by_year) {
    amounts[static_cast<std::size_t>(year - asset.firstYear())] = amount;
  }
  add(chart, asset, methods.back(), std::move(amounts));
}

}  // namespace

Chart methodsChart(const ReportAsset& asset) {
  Chart chart{.title = asset.saved().id, .first_year = asset.firstYear(), .series = {}};
  const std::string& name = asset.saved().name;
  if (!name.empty()) chart.title += (chart.title.empty() ? "" : ", ") + name;
  const auto results = calculatedToday(asset);
  if (!results) return chart;
  addScheduled(chart, asset, *results);
  trapped("DepCalc::Chart", [&] { addUnits(chart, asset, results->rate); });
  return chart;
}

Report chartReport(const Chart& chart) {
  std::vector<Column> columns{{"fiscal_year", "Fiscal year", ColumnKind::label}};
  for (const ChartSeries& series : chart.series) {
    const std::string code(series.code);
    const std::string name(series.name);
    columns.push_back({code, name, ColumnKind::amount});
    columns.push_back({code + "_book_value", name + ", book value", ColumnKind::amount});
  }
  Table table(std::move(columns));
  for (std::size_t year = 0; year < chart.years(); ++year) {
    std::vector<Cell> row{chart.first_year + static_cast<std::int32_t>(year)};
    for (const ChartSeries& series : chart.series) {
      const bool has = year < series.amounts.size();
      row.push_back(has ? Cell(series.amounts[year]) : Cell());
      row.push_back(has ? Cell(series.book_values[year]) : Cell());
    }
    table.add(row);
  }
  Report report{.title = chart.title, .covers = {}};
  report.tables.push_back(std::move(table));
  return report;
}

}  // namespace depcalc
