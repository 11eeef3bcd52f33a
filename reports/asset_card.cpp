#include "reports/asset_card.h"

#include <algorithm>

#include "engine/method.h"
#include "engine/schedule_span.h"
#include "reports/methods_chart.h"
#include "reports/proof.h"
#include "reports/todays_calculation.h"
#include "values/display_format.h"
#include "values/number_text.h"
#include "values/rounding.h"

namespace depcalc {
namespace {

std::string orNone(const std::string& text) { return text.empty() ? "(none)" : text; }

std::string shownDate(Date date) { return date.isNone() ? "(none)" : date.toText(); }

std::string shownMethod(const ReportAsset& asset) {
  for (const Method& method : methods) {
    if (method.code == asset.method()) return std::string(method.name);
  }
  return "(none)";
}

/// Captions and values.
class Facts {
 public:
  explicit Facts(std::string caption)
      : table_({{"field", "Field", ColumnKind::text}, {"value", "Value", ColumnKind::text}},
               std::move(caption)) {}

  void add(std::string_view caption, std::string_view value) {
    table_.add({table_.text(caption), table_.text(value)});
  }
  [[nodiscard]] Table take() { return std::move(table_); }

 private:
  Table table_;
};

Table fieldsOf(const ReportAsset& asset) {
  const SavedAsset& saved = asset.saved();
  Facts facts("Asset");
  facts.add("Asset ID", orNone(saved.id));
  facts.add("Name", orNone(saved.name));
  facts.add("Serial number", orNone(saved.serial));
  facts.add("Department", orNone(saved.department));
  facts.add("Placed in service", shownDate(saved.placed_in_service));
  facts.add("Basis", formatExactMoney(saved.basis));
  facts.add("Salvage value", formatExactMoney(saved.salvage));
  facts.add("Useful life in years", numberToText(saved.life));
  facts.add("Convention", asset.convention());
  facts.add("Method", shownMethod(asset));
  facts.add("Fiscal-year end",
            saved.fiscal_year_end.monthName() + ' ' + std::to_string(saved.fiscal_year_end.day()));
  facts.add("Production capacity", orNone(saved.capacity));
  return facts.take();
}

Table disposalOf(const ReportAsset& asset) {
  const SavedAsset& saved = asset.saved();
  const Currency gain = asset.gain();
  Facts facts("Disposal");
  facts.add("Disposed of", saved.disposed.toText());
  facts.add("Fiscal year", fiscalYearName(*asset.disposalYear()));
  facts.add("Proceeds", formatExactMoney(saved.proceeds));
  facts.add("Accumulated depreciation", formatExactMoney(asset.allAmounts()));
  facts.add("Book value then", formatExactMoney(saved.basis - asset.allAmounts()));
  facts.add(gain < Currency() ? "Loss" : "Gain",
            formatExactMoney(gain < Currency() ? Currency() - gain : gain));
  return facts.take();
}

/// The last fiscal year of the asset's schedule.
int lastShownYear(const ReportAsset& asset) {
  const bool full_year = asset.convention() == convention_names[cdepfullyear] &&
                         asset.saved().convention == conventionDigit(asset.convention());
  const double years = nearestEven(fiscalYearsSpanned(asset.saved().life, full_year));
  const int room = last_report_year - asset.firstYear() + 1;
  int last = asset.firstYear() + static_cast<int>(std::clamp<double>(years, 0, room)) - 1;
  for (int year = last + 1; year <= asset.lastYear(); ++year) {
    if (asset.amount(year) != Currency()) last = year;
  }
  return std::min(last, asset.disposalYear().value_or(last));
}

Table scheduleOf(const ReportAsset& asset) {
  Table table({{"fiscal_year", "Fiscal year", ColumnKind::label},
               {"before", "Accumulated before", ColumnKind::amount},
               {"depreciation", "Depreciation", ColumnKind::amount},
               {"after", "Accumulated after", ColumnKind::amount},
               {"book_value", "Book value", ColumnKind::amount}},
              "Schedule");
  if (!asset.isScheduled()) return table;
  const int last = lastShownYear(asset);
  for (int year = asset.firstYear(); year <= last; ++year) {
    const bool gone = asset.isDisposedIn(year);
    const Currency after = gone ? Currency() : asset.accumulated(year);
    table.add({year, asset.accumulated(year - 1), asset.amount(year), after,
               gone ? Currency() : asset.saved().basis - after});
  }
  return table;
}

/// As the comparison of the methods shows them, from the saved values.
Table methodsOf(const ReportAsset& asset, const MethodResults& results) {
  std::vector<Column> columns{{"fiscal_year", "Fiscal year", ColumnKind::label}};
  std::size_t years = 0;
  for (const ScheduledMethod& scheduled : scheduled_methods) {
    const std::string code(scheduled.method.code);
    columns.push_back({code, std::string(scheduled.method.name), ColumnKind::amount});
    const auto& amounts = results.*scheduled.amounts;
    for (std::size_t i = years; i < amounts.size(); ++i) {
      if (amounts[i] != Currency()) years = i + 1;
    }
  }
  Table table(std::move(columns), "Methods side by side, as calculated today");
  for (std::size_t i = 0; i < years; ++i) {
    std::vector<Cell> row{asset.firstYear() + static_cast<std::int32_t>(i)};
    for (const ScheduledMethod& scheduled : scheduled_methods) {
      row.emplace_back(amountAt(results.*scheduled.amounts, i));
    }
    table.add(row);
  }
  table.addTotal("Total");
  return table;
}

/// Where the asset left, everything accumulated was removed with it.
void proveSchedule(Report& report, const ReportAsset& asset) {
  const Table& table = report.tables[report.data_table];
  report.proofs.emplace_back(
      "before + depreciation = after, and basis - after = book value, until its disposal");
  for (std::size_t i = 0; i < table.rowCount(); ++i) {
    const auto row = table.row(i);
    const int year = std::get<std::int32_t>(row[0]);
    const Currency taken = amountIn(row, 1) + amountIn(row, 2);
    const bool holds = asset.isDisposedIn(year)
                           ? taken == asset.allAmounts()
                           : taken == amountIn(row, 3) &&
                                 asset.saved().basis - amountIn(row, 3) == amountIn(row, 4);
    if (!holds) report.disproofs.push_back(fiscalYearName(year) + " does not prove itself.");
  }
}

std::string titleOf(const SavedAsset& saved) {
  std::string title = "Asset " + std::to_string(saved.number);
  for (const std::string& text : {saved.id, saved.name}) {
    if (!text.empty()) title += ", " + text;
  }
  return title;
}

void addChart(Report& report, const ReportAsset& asset) {
  Chart chart = methodsChart(asset);
  if (chart.series.empty()) return;
  chart.title = "Every method as a chart, as calculated today";
  report.chart = std::move(chart);
}

Report reportOn(const RegisterOfAssets& assets, const ReportAsset& asset) {
  Report report{.title = titleOf(asset.saved()), .covers = coverLine(assets, "")};
  report.tables.push_back(fieldsOf(asset));
  if (asset.disposalYear()) report.tables.push_back(disposalOf(asset));
  report.data_table = report.tables.size();
  report.tables.push_back(scheduleOf(asset));
  addChart(report, asset);
  if (const auto results = calculatedToday(asset)) {
    report.tables.push_back(methodsOf(asset, *results));
    if (results->rate != Currency()) {
      report.notes.push_back("By units of production: " + formatRate(results->rate) + " per unit.");
    }
  }
  if (!asset.isScheduled()) {
    report.notes.emplace_back(asset.method().empty() ? "It has no amounts: no method was chosen."
                                                     : "It has no amounts: no units were entered.");
  }
  proveSchedule(report, asset);
  return report;
}

}  // namespace

std::optional<Report> assetReport(const RegisterOfAssets& assets, std::int32_t number) {
  for (const ReportAsset& asset : assets.assets) {
    if (asset.saved().number == number) return reportOn(assets, asset);
  }
  return std::nullopt;
}

}  // namespace depcalc
