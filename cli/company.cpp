#include "cli/company.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <variant>

#include "cli/options.h"
#include "cli/printable_text.h"
#include "common/report_error.h"
#include "common/trapped.h"
#include "host/sqlite/company_file.h"
#include "host/unit_of_work.h"

namespace depcalc {
namespace {

bool isNumbered(std::string_view report, std::string_view number) {
  return report.find(number) != std::string_view::npos;
}

/// What the values of an asset can cause. Whatever else cuts a reading short would pass for an
/// asset of other values.
bool isOfValues(std::string_view report) {
  constexpr std::string_view numbers[] = {
      "Error#5:", "Error#6:", "Error#9:", "Error#11:", "Error#13:"};
  return std::any_of(std::begin(numbers), std::end(numbers),
                     [&](std::string_view number) { return isNumbered(report, number); });
}

RuntimeError errorOf(std::string_view report) {
  return isNumbered(report, "Error#7:") ? RuntimeError::outOfMemory()
                                        : RuntimeError(57, std::string(report));
}

}  // namespace

Company::Company(std::shared_ptr<HostCompanyFile> file, std::string shown_name, Date today)
    : shown_name_(std::move(shown_name)), today_(today), store_(state_, [today] { return today; }) {
  state_.m_orvcf = std::move(file);
  state_.TableName = asset_table_name;
  // Reading an asset ends by clearing the current record's new flag.
  state_.CurrentRecord = std::make_shared<CalculateDep>();
}

std::int32_t Company::assetCount() const {
  const std::int32_t records = file().OpenTable(asset_table_name)->Count();
  return records == 0 ? 0 : records - 1;
}

CalculateDepPtr Company::asset(std::int32_t index) {
  std::optional<RuntimeError> failure;
  const ErrorReportHook asset_without_amounts([&](std::string_view report) {
    if (!isOfValues(report)) failure = errorOf(report);
  });
  CalculateDepPtr asset = store_.ReadData(static_cast<std::int16_t>(index));
  if (failure) throw RuntimeError(*failure);
  return asset;
}

std::optional<std::string> Company::changeAtOnce(const std::function<void()>& change, bool keep) {
  bool failed = false;  // known even where there is no memory to keep why
  std::optional<std::string> first_report;
  const ErrorReportHook reports([&](std::string_view report) {
    failed = true;
    if (!first_report) first_report = report;
  });
  HostUnitOfWork& unit = *file().unitOfWork();
  unit.begin();
  trapped("depcalc", change);
  if (keep && !failed) {
    unit.end();
  } else {
    unit.abandon();
  }
  if (failed && !first_report) first_report = "Out of memory";
  return first_report;
}

ExitStatus reportTrouble(const FileTrouble& trouble, Output& errors) {
  using Kind = FileTrouble::Kind;
  errors.write("depcalc: " + printableText(trouble.description()) + '\n');
  if (trouble.details().size() > 1) {
    for (const std::string& detail : trouble.details()) {
      errors.write("  " + printableText(detail) + '\n');
    }
  }
  switch (trouble.kind()) {
    case Kind::locked:
      return exit_locked;
    case Kind::damaged:
    case Kind::newer:
    case Kind::not_a_company_file:
      return exit_bad_data;
    default:
      return exit_system;
  }
}

void CompanyCommand::declare(CLI::App& app) {
  app.add_option("FILE", path_, "The company file")->required()->option_text(" ");
  declareMore(app);
  addTodayOption(app, today_);
}

ExitStatus CompanyCommand::run(Surroundings& surroundings) {
  const Date today = today_.value_or(surroundings.today);
  const auto opened = SqliteCompanyFile::open(
      path_, {.today = [today] { return today; }, .writable = !onlyReads(), .vfs = {}});
  if (const auto* trouble = std::get_if<FileTrouble>(&opened)) {
    return reportTrouble(*trouble, surroundings.errors);
  }
  const auto& file = std::get<std::shared_ptr<SqliteCompanyFile>>(opened);
  Company company(file, printableText(path_), today);
  ExitStatus status = exit_system;
  std::string report;
  bool short_of_memory = false;
  const ErrorReportHook last_report([&](std::string_view text) {
    short_of_memory = short_of_memory || isNumbered(text, "Error#7:");
    report = text;
  });
  const bool done = trapped("depcalc", [&] { status = runOn(company, surroundings); });
  if (const auto trouble = file->takeTrouble()) return reportTrouble(*trouble, surroundings.errors);
  if (done && !short_of_memory) return status;
  // A part that had no memory and was passed over leaves the rest in doubt.
  const std::string_view known(report);
  complain(company, known.empty() || done ? "Out of memory" : known, surroundings.errors);
  return exit_system;
}

void CompanyCommand::complain(const Company& company, std::string_view message, Output& errors) {
  errors.write("depcalc: " + company.name() + ": " + printableText(message) + '\n');
}

}  // namespace depcalc
