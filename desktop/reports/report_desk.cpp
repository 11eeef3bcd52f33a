#include "desktop/reports/report_desk.h"

#include <algorithm>
#include <array>
#include <utility>

#include "reports/asset_card.h"
#include "reports/formats/csv.h"
#include "reports/formats/html.h"
#include "reports/formats/json.h"
#include "reports/formats/ledger.h"
#include "reports/formats/tabbed.h"
#include "reports/formats/xlsx/xlsx.h"
#include "reports/register_check.h"
#include "reports/rollforward.h"
#include "reports/schedule.h"
#include "reports/years.h"
#include "values/data_text.h"
#include "values/runtime_error.h"

namespace depcalc::desktop {
namespace {

struct KindText {
  std::string_view title;
  std::string_view line;
};

constexpr std::array<KindText, report_kind_count> kind_texts{
    {{"Depreciation schedule", "every asset, one fiscal year"},
     {"All fiscal years", "every asset, every year, nothing cut off"},
     {"Roll-forward", "opening, additions, charge, disposals, closing"},
     {"Journal entry", "for the general ledger"},
     {"Asset card", "one asset with every year"},
     {"Register check", ""}}};

constexpr std::array<OfferedFormat, 6> all_formats{
    {{ExportFormat::pdf, "&PDF document", ".pdf"},
     {ExportFormat::xlsx, "&Excel workbook", ".xlsx"},
     {ExportFormat::html, "&HTML page", ".html"},
     {ExportFormat::csv, "&CSV file", ".csv"},
     {ExportFormat::json, "&JSON file", ".json"},
     {ExportFormat::ledger, "&Ledger journal", ".journal"}}};

const KindText& textOf(ReportKind kind) { return kind_texts.at(static_cast<std::size_t>(kind)); }

}  // namespace

ReportDesk::ReportDesk(std::shared_ptr<const RegisterOfAssets> assets)
    : assets_(std::move(assets)), year_(assets_->years.of(assets_->today)) {
  keepWithinRegister();
}

void ReportDesk::setRegister(std::shared_ptr<const RegisterOfAssets> assets) {
  assets_ = std::move(assets);
  keepWithinRegister();
}

void ReportDesk::keepWithinRegister() {
  const auto last = static_cast<std::int32_t>(assets_->assets.size());
  asset_ = std::clamp(asset_, 1, std::max(1, last));
  check_ = checkReport(*assets_).report;
  fresh_ = false;
}

std::string_view ReportDesk::titleOf(ReportKind kind) { return textOf(kind).title; }

std::string ReportDesk::lineOf(ReportKind kind) const {
  if (kind != ReportKind::check) return std::string(textOf(kind).line);
  const std::size_t findings = check_->tables[check_->data_table].rowCount();
  if (findings == 0) return "nothing to look at";
  return findings == 1 ? "1 thing to look at" : std::to_string(findings) + " things to look at";
}

void ReportDesk::choose(ReportKind kind) {
  if (std::exchange(kind_, kind) != kind) fresh_ = false;
}
void ReportDesk::chooseYear(int year) {
  if (std::exchange(year_, year) != year) fresh_ = false;
}
void ReportDesk::chooseGrouping(Grouping grouping) {
  if (std::exchange(grouping_, grouping) != grouping) fresh_ = false;
}
void ReportDesk::chooseAsset(std::int32_t number) {
  if (std::exchange(asset_, number) != number) fresh_ = false;
}

bool ReportDesk::asksForYear() const {
  return kind_ == ReportKind::schedule || kind_ == ReportKind::rollforward ||
         kind_ == ReportKind::journal;
}

bool ReportDesk::asksForGrouping() const {
  return kind_ != ReportKind::asset && kind_ != ReportKind::check;
}

bool ReportDesk::asksForAsset() const { return kind_ == ReportKind::asset; }

std::vector<int> ReportDesk::years() const {
  const int today = assets_->years.of(assets_->today);
  int first = today;
  int last = today;
  for (const ReportAsset& asset : assets_->assets) {
    first = std::min(first, asset.firstYear());
    last = std::max(last, asset.lastYear());
  }
  first = std::clamp(first, first_report_year, last_report_year);
  last = std::clamp(last, first, last_report_year);
  std::vector<int> years;
  for (int year = first; year <= last; ++year) years.push_back(year);
  return years;
}

std::vector<std::string> ReportDesk::assetNames() const {
  std::vector<std::string> names;
  for (const ReportAsset& asset : assets_->assets) {
    const SavedAsset& saved = asset.saved();
    names.push_back(std::to_string(saved.number) + "  " + saved.id + "  " + saved.name);
  }
  return names;
}

std::optional<Report> ReportDesk::made() const {
  switch (kind_) {
    case ReportKind::schedule:
      return scheduleReport(*assets_, year_, grouping_);
    case ReportKind::years:
      return yearsReport(*assets_, rangeOfYears(*assets_, {}, {}), grouping_);
    case ReportKind::rollforward:
      return rollforwardReport(*assets_, year_, grouping_);
    case ReportKind::journal:
      return journalReport(*assets_, year_, grouping_, JournalAccounts());
    case ReportKind::asset:
      return assetReport(*assets_, asset_);
    case ReportKind::check:
      return check_;
  }
  return {};
}

const Report* ReportDesk::report() {
  if (!std::exchange(fresh_, true)) {
    trouble_.clear();
    try {
      report_ = made();
      if (!report_) trouble_ = "There is no asset to report on yet.";
    } catch (const RuntimeError&) {
      report_.reset();
      trouble_ = "The amounts of this report are too large to be added up.";
    }
  }
  return report_ ? &*report_ : nullptr;
}

std::vector<OfferedFormat> ReportDesk::formats() const {
  std::vector<OfferedFormat> offered(all_formats.begin(), all_formats.end());
  if (kind_ != ReportKind::journal) offered.pop_back();
  return offered;
}

std::string ReportDesk::fileName() const {
  std::string name(titleOf(kind_));
  if (asksForYear()) name += ' ' + fiscalYearName(year_);
  if (asksForAsset()) name += ' ' + std::to_string(asset_);
  return name;
}

std::string ReportDesk::written(ExportFormat format, std::string& trouble) {
  const Report* const shown = report();
  if (shown == nullptr) {
    trouble = trouble_;
    return {};
  }
  switch (format) {
    case ExportFormat::xlsx:
      return xlsxReport(*shown, trouble);
    case ExportFormat::html:
      return htmlReport(*shown);
    case ExportFormat::csv:
      return csvReport(*shown, CsvFields(false));
    case ExportFormat::json:
      return jsonReport(*shown);
    case ExportFormat::ledger:
      return ledgerReport(*shown);
    case ExportFormat::pdf:
      break;
  }
  return {};
}

CopiedReport ReportDesk::copied() {
  const Report* const shown = report();
  if (shown == nullptr) return {};
  return {tabbedReport(*shown), htmlReport(*shown)};
}

}  // namespace depcalc::desktop
