#include "DepCalc/asset_store.h"

#include <utility>

#include "DepCalc/asset_store_inside.h"

namespace depcalc {
namespace {

SummaryShare shareOf(const CalculateDep& asset, Date placed_in_service) {
  return {.first_year = firstFiscalYearOf(placed_in_service, asset.FYEnd()),
          .units_of_production = countsAsUnitsOfProduction(asset.DepMethod()),
          .partial_first_year = numberFromText(asset.DepConvention()) != 0.0,
          .life = asset.DepRecovery()};
}

}  // namespace

AssetStore::AssetStore(StoreState& state, std::function<Date()> today)
    : state_(state), today_(std::move(today)) {}

HostCompanyFile& AssetStore::companyFile() const {
  if (state_.m_orvcf == nullptr) throw RuntimeError::objectNotSet();
  return *state_.m_orvcf;
}

CalculateDep& AssetStore::currentRecord() const {
  if (state_.CurrentRecord == nullptr) throw RuntimeError::objectNotSet();
  return *state_.CurrentRecord;
}

AssetStore::Table AssetStore::openTable() const {
  return companyFile().OpenTable(state_.TableName);
}

std::int16_t AssetStore::infoIndex() const { return toIndex(state_.InfoIndex); }

Date AssetStore::fiscalYearEnd() const { return companyFile().FiscalYearStart().plusDays(-1); }

AssetStore::FirstView AssetStore::open() {
  state_.TableName = asset_table_name;
  state_.InfoIndex = 0;
  UnitScope unit(*this, "DepCalc::DepCalcCont_Initialize");
  const Table table = openTable();
  const Date fiscal_year_end = fiscalYearEnd();
  const bool fresh = !table->Exists(infoIndex()) || table->Count() < 1;
  change([&] {
    const Record info = fresh ? table->Add(infoIndex()) : table->Item(infoIndex());
    info->BeginEdit();
    info->Fields().SetValue("FYEND", StoredValue::date(fiscal_year_end));
    info->Modified(true);
    info->Commit();
  });
  unit.end();  // what cannot be written ends the start-up
  if (fresh || table->Count() <= 1) return FirstView::entry_form;
  return FirstView::asset_register;
}

void AssetStore::WriteData(std::int16_t& index) {
  procedure("DepCalc::WriteData", [&] { writeAsset(index); });
}

void AssetStore::writeAsset(std::int16_t& index) {
  if (state_.TableName.empty() || state_.InfoIndex < 0) return;
  const Table table = openTable();
  const bool empty = table->Count() == 0;
  const bool has_info = table->Exists(infoIndex());
  if (empty || !has_info) change([&] { table->Add(infoIndex()); });
  const Record record = recordToWrite(*table, index);

  record->BeginEdit();
  const Date placed_in_service = placedInService();
  setProperties(*record, index, placed_in_service);
  record->Modified(true);
  change([&] { record->Commit(); });
  note(index, shareOf(currentRecord(), placed_in_service));
  // The amounts need the register's span with this asset in it.
  WriteTableInfo();
  ReadTableInfo(state_.StartYr, state_.NumYrs, state_.NumAssets, state_.FYEnd);

  record->BeginEdit();
  setAmounts(*record);
  record->Modified(true);
  change([&] { record->Commit(); });
  table->Item(infoIndex());  // by definition, without effect where the summary is there
  WriteTableInfo();
}

AssetStore::Record AssetStore::recordToWrite(HostTable& table, std::int16_t& index) {
  CalculateDep& asset = currentRecord();
  if (numberFromText(asset.RecIndex()) != 0.0) return table.Item(index);
  const std::int32_t behind_last = table.Count();
  index = toIndex(behind_last);
  asset.RecIndex(std::to_string(behind_last));
  Record record;
  change([&] { record = table.Add(index); });
  note(index, std::nullopt);
  return record;
}

Date AssetStore::placedInService() const {
  const Date start = currentRecord().AssetStartDate();
  return start.isNone() ? today_() : start;
}

void AssetStore::setProperties(HostRecord& record, std::int16_t index, Date placed_in_service) {
  const CalculateDep& asset = currentRecord();
  const auto set = [&](std::string_view name, StoredValue value) {
    record.Fields().SetValue(name, std::move(value));
  };
  set("RecIndex", StoredValue::integer(index));
  set("AID", StoredValue::text(asset.AssetID()));
  set("AName", StoredValue::text(asset.AssetName()));
  set("ASerial", StoredValue::text(asset.ASerial()));
  set("ADept", StoredValue::text(asset.ADept()));
  set("AEnd", StoredValue::date(asset.AssetEndDate()));
  set("ASale", StoredValue::text(asset.ASalePrice()));
  set("ABasis", StoredValue::currency(asset.AssetBasis()));
  set("AStart", StoredValue::date(placed_in_service));
  set("ASalvage", StoredValue::currency(asset.AssetSalvage()));
  set("AProdCap", StoredValue::text(asset.AssetProdCap()));
  set("DRecovery", StoredValue::real(asset.DepRecovery()));
  set("DConvention", StoredValue::text(asset.DepConvention()));
  set("FYEnd", StoredValue::date(asset.FYEnd()));
  set("DMethod", StoredValue::text(asset.DepMethod()));
}

void AssetStore::setAmounts(HostRecord& record) {
  CalculateDep& asset = currentRecord();
  const auto set = [&](std::int32_t year, StoredValue value) {
    record.Fields().SetValue(amountName(year), std::move(value));
  };
  const std::int32_t last_blank = toInteger16HalfEven(state_.NumYrs + 1.0);
  for (std::int32_t y = 0; y <= last_blank; ++y) set(y, StoredValue::text(""));
  if (asset.DepMethod().empty()) return;
  if (isUnitsOfProduction(asset.DepMethod())) {
    set(0, StoredValue::currency(asset.DepItem(0)));
    return;
  }
  const std::int32_t last_amount = toInteger16HalfEven(state_.NumYrs);
  for (std::int32_t y = 0; y <= last_amount; ++y) {
    set(y, StoredValue::currency(asset.DepItem(static_cast<std::int16_t>(y))));
  }
}

/// "Dep" and the year's number, up to the last year that was asked for.
void AssetStore::nameAmounts(std::size_t last) {
  while (amount_names_.size() <= last) {
    amount_names_.push_back("Dep" + std::to_string(amount_names_.size()));
  }
}

void AssetStore::DeleteRecord(const std::vector<CalculateDepPtr>& myCalcDep, std::int16_t myIndex) {
  procedure("DepCalc::DeleteRecord", [&] {
    const Table table = openTable();
    if (table->Count() == 1) deleteSlot(*table, 0);
    const std::int16_t last = toIndex(table->Count() - 1);
    if (!table->Exists(last)) return;
    deleteSlot(*table, last);
    // An empty register leaves no summary behind.
    if (table->Count() == 1) {
      deleteSlot(*table, 0);
      return;
    }
    const std::int32_t first = myIndex == 0 ? 1 : myIndex;
    for (std::int32_t i = first; i <= last - 1; ++i) {
      const auto element = static_cast<std::size_t>(i - 1);
      if (i < 1 || element >= myCalcDep.size()) throw RuntimeError::subscriptOutOfRange();
      state_.CurrentRecord = myCalcDep[element];
      auto index = static_cast<std::int16_t>(i);
      WriteData(index);
    }
  });
}

void AssetStore::deleteSlot(HostTable& table, std::int16_t index) {
  const Record record = table.Item(index);
  record->BeginEdit();
  change([&] { record->Delete(); });
  if (index > 0 && summaryIsCurrent()) summary_.dropFrom(index);
}

void AssetStore::DepCalcContSaveRecord(CalculateDepPtr myRecord) {
  procedure("DepCalc::DepCalcContSaveRecord", [&] {
    state_.CurrentRecord = std::move(myRecord);
    std::int16_t index = toInteger16HalfEven(numberFromText(currentRecord().RecIndex()));
    WriteData(index);
  });
}

}  // namespace depcalc
