#include "DepCalc/company_assets.h"

#include <utility>

#include "common/heard_reports.h"
#include "common/trapped.h"
#include "host/unit_of_work.h"

namespace depcalc {
namespace {

RuntimeError errorOf(const ErrorReport& report) {
  return report.isOfMemory() ? RuntimeError::outOfMemory() : RuntimeError(57, report.text());
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
  // What its values cause leaves an asset without amounts. Whatever else cuts a reading short would
  // pass for an asset of other values.
  const ErrorReportHook hook([&](const ErrorReport& report) {
    if (!report.isOfValues()) failure = errorOf(report);
  });
  CalculateDepPtr asset = store_.ReadData(static_cast<std::int16_t>(index));
  if (failure) throw RuntimeError(*failure);
  return asset;
}

std::optional<std::string> CompanyAssets::changeAtOnce(const std::function<void()>& change,
                                                       bool keep) {
  const HeardReports heard;
  HostUnitOfWork& unit = *file().unitOfWork();
  unit.begin();
  trapped("depcalc", change);
  if (keep && !heard.any()) {
    unit.end();
  } else {
    unit.abandon();
  }
  if (!heard.any()) return std::nullopt;
  return heard.first().empty() ? "Out of memory" : heard.first();
}

}  // namespace depcalc
