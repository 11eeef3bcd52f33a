// Reading assets.
#include <algorithm>

#include "DepCalc/asset_store_inside.h"

namespace depcalc {
namespace {

/// What an asset as it was read contributes to the summary; empty where the summary has to look
/// at the record itself, to end as it ends there.
std::optional<SummaryShare> shareOf(const CalculateDep& asset, const std::string& convention,
                                    bool lasts) {
  const bool units_of_production = isUnitsOfProduction(asset.DepMethod());
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
  // Noted first: where the reading ends there may be no memory to note anything.
  noteCutShort(asset);
  bool whole = false;
  procedure("DepCalc::ReadData", [&] {
    const Table table = openTable();
    const bool exists = table->Exists(index);
    whole = table->Count() < 1 || !exists;
    if (whole) return;
    const Record record = table->Item(index);
    readProperties(*record, index, *asset);
    readAmounts(*record, *asset, whole);
    currentRecord().RecNew(false);
  });
  if (whole) cut_short_.pop_back();
  return asset;
}

void AssetStore::noteCutShort(const CalculateDepPtr& asset) {
  if (cut_short_.size() == cut_short_.capacity()) {
    std::erase_if(cut_short_, [](const auto& record) { return record.expired(); });
  }
  cut_short_.emplace_back(asset);
}

bool AssetStore::isCutShort(const CalculateDepPtr& asset) const {
  return asset != nullptr &&
         std::any_of(cut_short_.begin(), cut_short_.end(),
                     [&](const auto& record) { return record.lock() == asset; });
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

/// A blank ends the amounts of an asset as much as the last of them does: `whole` says whether
/// one of these ends was reached, with all before it in the record.
void AssetStore::readAmounts(HostRecord& record, CalculateDep& asset, bool& whole) {
  bool kept = true;
  const auto read = [&](std::int32_t year) {
    const StoredValue value = record.Fields().GetValue(amountName(year));
    whole = kept && value.type() == StoredValue::Type::text && value.asText().empty();
    const Currency amount = value.asCurrency();
    asset.DepItem(static_cast<std::int16_t>(year), amount);
    const auto at = static_cast<std::size_t>(year);
    kept = kept && at < asset.depItems().size() && asset.depItems()[at] == amount;
  };
  const bool units_of_production = asset.DepMethod() == "UOP";
  const std::int32_t last =
      units_of_production ? 0 : toInteger16HalfEven(asset.DepRecovery() + 1.0);
  for (std::int32_t y = 0; y <= last; ++y) read(y);
  whole = kept;
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
