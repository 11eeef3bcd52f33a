// Reading assets.
#include "DepCalc/asset_store_inside.h"

namespace depcalc {
namespace {

/// What an asset as it was read contributes to the summary; empty where the summary has to look
/// at the record itself, to end as it ends there.
std::optional<SummaryShare> shareOf(const CalculateDep& asset, const std::string& convention,
                                    bool lasts) {
  const bool units_of_production = countsAsUnitsOfProduction(asset.DepMethod());
  const auto number = tryNumberFromText(convention);
  if (!lasts || (!number && !units_of_production)) return std::nullopt;
  return SummaryShare{.first_year = firstFiscalYearOf(asset.AssetStartDate(), asset.FYEnd()),
                      .units_of_production = units_of_production,
                      .partial_first_year = number.value_or(0.0) != 0.0,
                      .life = asset.DepRecovery()};
}

}  // namespace

CalculateDepPtr AssetStore::ReadData(std::int16_t index) {
  auto asset = std::make_shared<CalculateDep>();
  procedure("DepCalc::ReadData", [&] {
    const Table table = openTable();
    const bool exists = table->Exists(index);
    if (table->Count() < 1 || !exists) return;
    const Record record = table->Item(index);
    readProperties(*record, index, *asset);
    readAmounts(*record, *asset);
    currentRecord().RecNew(false);
  });
  return asset;
}

void AssetStore::readProperties(HostRecord& record, std::int16_t index, CalculateDep& asset) {
  const auto get = [&](std::string_view name) { return record.Fields().GetValue(name); };
  const auto text = [&](std::string_view name) { return get(name).asText(); };
  asset.RecIndex(text("RecIndex"));
  asset.AssetID(text("AID"));
  asset.AssetName(text("AName"));
  asset.ASerial(text("ASerial"));
  asset.ADept(text("ADept"));
  asset.AssetEndDate(get("AEnd").asDate(today_()));
  asset.ASalePrice(text("ASale"));
  asset.AssetBasis(get("ABasis").asCurrency());
  const StoredValue start = get("AStart");
  asset.AssetStartDate(start.asDate(today_()));
  asset.AssetSalvage(get("ASalvage").asCurrency());
  asset.AssetProdCap(text("AProdCap"));
  asset.DepRecovery(get("DRecovery").asDouble());
  const std::string convention = text("DConvention");
  asset.DepConvention(convention);
  const StoredValue fiscal_year_end = get("FYEnd");
  asset.FYEnd(fiscal_year_end.asDate(today_()));
  asset.DepMethod(text("DMethod"));
  startSummary();
  note(index, shareOf(asset, convention, lastsBeyondToday(start, fiscal_year_end)));
}

void AssetStore::readAmounts(HostRecord& record, CalculateDep& asset) {
  const auto read = [&](std::int32_t year) {
    const Currency amount = record.Fields().GetValue(amountName(year)).asCurrency();
    asset.DepItem(static_cast<std::int16_t>(year), amount);
  };
  if (isUnitsOfProduction(asset.DepMethod())) {
    read(0);
    return;
  }
  const std::int32_t last = toInteger16HalfEven(asset.DepRecovery() + 1.0);
  for (std::int32_t y = 0; y <= last; ++y) read(y);
}

void AssetStore::ReadTableInfo(std::int16_t& StartYr, double& NumYrs, std::int16_t& NumAssets,
                               Date& FYEnd) {
  procedure("DepCalc::ReadTableInfo", [&] {
    const Table table = openTable();
    const bool exists = table->Exists(infoIndex());
    if (table->Count() < 1 || !exists) return;
    const Record info = table->Item(infoIndex());
    const auto get = [&](std::string_view name) { return info->Fields().GetValue(name); };
    const std::string start = get("Start").asText();
    if (!start.empty()) StartYr = toInteger16HalfEven(numberFromText(start));
    NumYrs = get("NumYears").asDouble();
    NumAssets = toIndex(table->Count() - 1);
    FYEnd = get("FYEnd").asDate(today_());
    const Date current = fiscalYearEnd();
    if (current != FYEnd) FYEnd = current;
  });
}

}  // namespace depcalc
