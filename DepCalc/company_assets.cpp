#include "DepCalc/company_assets.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "common/report_error.h"
#include "common/trapped.h"
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

CompanyAssets::CompanyAssets(std::shared_ptr<HostCompanyFile> file, Date today)
    : today_(today), store_(state_, [today] { return today; }) {
  state_.m_orvcf = std::move(file);
  state_.TableName = asset_table_name;
  // Reading an asset ends by clearing the current record's new flag.
  state_.CurrentRecord = std::make_shared<CalculateDep>();
}

std::int32_t CompanyAssets::assetCount() const {
  const std::int32_t records = file().OpenTable(asset_table_name)->Count();
  return records == 0 ? 0 : records - 1;
}

CalculateDepPtr CompanyAssets::asset(std::int32_t index) {
  std::optional<RuntimeError> failure;
  const ErrorReportHook asset_without_amounts([&](std::string_view report) {
    if (!isOfValues(report)) failure = errorOf(report);
  });
  CalculateDepPtr asset = store_.ReadData(static_cast<std::int16_t>(index));
  if (failure) throw RuntimeError(*failure);
  return asset;
}

std::optional<std::string> CompanyAssets::changeAtOnce(const std::function<void()>& change,
                                                       bool keep) {
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

}  // namespace depcalc
