// The register's summary, record 0.
#include <algorithm>
#include <utility>

#include "DepCalc/asset_store_inside.h"

namespace depcalc {
namespace {

/// The first fiscal year of an asset, and whether it is the same whatever today is.
struct FirstYear {
  std::int16_t year;
  bool lasts;
};

FirstYear firstYearIn(HostRecord& record, Date today) {
  const StoredValue fiscal_year_end = record.Fields().GetValue("FYEnd");
  const Date end = fiscal_year_end.asDate(today);
  const StoredValue start = record.Fields().GetValue("AStart");
  return {firstFiscalYearOf(start.asDate(today), end), lastsBeyondToday(start, fiscal_year_end)};
}

}  // namespace

void AssetStore::WriteTableInfo() {
  procedure("DepCalc::WriteTableInfo", [&] {
    const Table table = openTable();
    sumUpRecords(*table);
    commitTableInfo(*table);
  });
}

void AssetStore::sumUp() { sumUpRecords(*openTable()); }

void AssetStore::sumUpRecords(HostTable& table) {
  state_.StartYr = 3000;
  state_.NumYrs = 0;
  startSummary();
  if (summaryIsCurrent()) {
    if (const auto totals = summary_.totals(table.Count() - 1)) {
      state_.StartYr = totals->start_year;
      state_.NumYrs = totals->years;
      return;
    }
  }
  findFirstYear(table);
  findSpan(table);
}

void AssetStore::findFirstYear(HostTable& table) {
  const std::int32_t count = table.Count();
  for (std::int32_t i = 1; i <= count - 1; ++i) {
    const Record record = table.Item(toIndex(i));
    state_.StartYr = std::min(state_.StartYr, firstYearIn(*record, today_()).year);
  }
}

void AssetStore::findSpan(HostTable& table) {
  const std::int32_t count = table.Count();
  for (std::int32_t i = 1; i <= count - 1; ++i) {
    const Record record = table.Item(toIndex(i));
    const FirstYear first = firstYearIn(*record, today_());
    SummaryShare share{.first_year = first.year};
    const std::string convention = record->Fields().GetValue("DConvention").asText();
    const int offset = share.first_year - state_.StartYr;
    const std::string method = record->Fields().GetValue("DMethod").asText();
    std::int16_t span = 1;
    share.units_of_production = countsAsUnitsOfProduction(method);
    if (!share.units_of_production) {
      share.life = record->Fields().GetValue("DRecovery").asDouble();
      share.partial_first_year = numberFromText(convention) != 0.0;
      span = spanOf(offset, share.life, share.partial_first_year);
    }
    state_.NumYrs = std::max(state_.NumYrs, static_cast<double>(span));
    note(i, first.lasts ? std::optional(share) : std::nullopt);
  }
}

void AssetStore::commitTableInfo(HostTable& table) {
  const Record info = table.Item(infoIndex());
  info->BeginEdit();
  info->Fields().SetValue("Start", StoredValue::integer(state_.StartYr));
  info->Fields().SetValue("NumYears", StoredValue::real(state_.NumYrs));
  const Date fiscal_year_end = fiscalYearEnd();
  info->Fields().SetValue("FYEND", StoredValue::date(fiscal_year_end));
  info->Modified(true);
  change([&] { info->Commit(); });
}

bool AssetStore::summaryIsCurrent() const {
  if (state_.m_orvcf == nullptr || summary_file_.lock() != state_.m_orvcf) return false;
  return state_.m_orvcf->unitOfWork()->revision() == summary_revision_;
}

void AssetStore::startSummary() {
  HostUnitOfWork* unit = companyFile().unitOfWork();
  if (unit == nullptr || summaryIsCurrent()) return;
  summary_.forget();
  summary_file_ = state_.m_orvcf;
  summary_revision_ = unit->revision();
}

void AssetStore::note(std::int32_t index, const std::optional<SummaryShare>& share) {
  if (index < 1 || !summaryIsCurrent()) return;
  // An error on the way leaves a summary that is nobody's.
  std::weak_ptr<HostCompanyFile> file = std::exchange(summary_file_, {});
  summary_.note(index, share);
  summary_file_ = std::move(file);
}

}  // namespace depcalc
