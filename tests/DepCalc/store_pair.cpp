#include "tests/DepCalc/store_pair.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "values/text.h"

namespace depcalc::testing_support {
namespace {

std::vector<Currency> amountsOf(const AssetEntry& entry, CalculateDep& asset) {
  auto straight_line = asset.StraightLine();
  auto digits = asset.SumofYearsDigits();
  auto balance = asset.DoubleDecliningBalance();
  const Currency rate = asset.UnitsofProduction();
  if (entry.method == "SYD") return digits;
  if (entry.method == "DDB") return balance;
  if (entry.method == "UOP") return {rate};
  return straight_line;
}

/// The record of index i comes under i × `sign`.
void addContent(HostTable& table, int sign, TableContent& content) {
  const std::int32_t count = table.Count();
  for (int i = 0, found = 0; found < count && i <= 32767; ++i) {
    const auto index = static_cast<std::int16_t>(i);
    if (!table.Exists(index)) continue;
    ++found;
    const auto record = table.Item(index);
    auto& values = content[i * sign];
    for (const std::string& name : record->Fields().names()) {
      values[toLower(name)] = record->Fields().GetValue(name);
    }
  }
}

}  // namespace

std::vector<HostKind> storeHostKinds() {
  std::vector<HostKind> kinds;
  for (const HostKind& kind : hostKinds()) {
    if (!kind.is_failing) kinds.push_back(kind);
  }
  return kinds;
}

void enter(const AssetEntry& entry, CalculateDep& asset) {
  asset.AssetID(entry.id);
  asset.AssetName("Truck " + entry.id);
  asset.ASerial("SN-" + entry.id);
  asset.ADept("Yard");
  asset.AssetBasis(Currency::fromTicks(entry.basis * 10'000));
  asset.AssetSalvage(Currency::fromTicks(entry.basis * 1'000));
  asset.AssetStartDate(entry.start);
  asset.AssetProdCap(entry.capacity);
  asset.DepRecovery(entry.life);
  asset.DepConvention(entry.convention);
  asset.FYEnd(entry.fiscal_year_end);
  asset.DepMethod(entry.method);
  if (!entry.calculated || entry.life < 0) return;
  const auto amounts = amountsOf(entry, asset);
  for (std::size_t i = 0; i < amounts.size(); ++i) {
    asset.DepItem(static_cast<std::int16_t>(i), amounts[i]);
  }
}

CalculateDepPtr newAsset(const AssetEntry& entry) {
  auto asset = std::make_shared<CalculateDep>();
  asset->RecNew(true);
  enter(entry, *asset);
  return asset;
}

TableContent contentOf(HostCompanyFile& file) {
  TableContent content;
  addContent(*file.OpenTable("ZEM:DepCalc"), 1, content);
  addContent(*file.OpenTable("UnitsProduced"), -1, content);
  return content;
}

std::string describe(const TableContent& table) {
  std::ostringstream out;
  for (const auto& [index, values] : table) {
    out << index << ":";
    for (const auto& [name, value] : values) {
      out << ' ' << name << '=' << value.typeName() << '(' << value.asText() << ')';
    }
    out << '\n';
  }
  return out.str();
}

std::string describe(const CalculateDepPtr& asset) {
  if (asset == nullptr) return "nothing";
  std::ostringstream out;
  out << asset->RecIndex() << '|' << asset->RecNew() << '|' << asset->AssetID() << '|'
      << asset->AssetName() << '|' << asset->ASerial() << '|' << asset->ADept() << '|'
      << asset->AssetEndDate().toText() << '|' << asset->ASalePrice() << '|'
      << asset->AssetBasis().toText() << '|' << asset->AssetStartDate().toText() << '|'
      << asset->AssetSalvage().toText() << '|' << asset->AssetProdCap() << '|'
      << StoredValue::real(asset->DepRecovery()).asText() << '|' << asset->DepConvention() << '|'
      << asset->FYEnd().toText() << '|' << asset->DepMethod() << '|';
  for (std::int16_t y = 0; y < std::min(asset->DepRecovery() + 1, 100.0); ++y) {
    out << ' ' << asset->DepItem(y).toText();
  }
  return out.str();
}

StorePair::StorePair(const HostKind& kind, Date today, Date fiscal_year_start)
    : host(kind.make(fiscal_year_start)), store(state, [this] { return literal.today; }) {
  literal.today = today;
  literal.fiscal_year_start = host->file()->FiscalYearStart();
  state.m_orvcf = host->failingFile(plan);
}

void StorePair::openBoth() {
  const auto view = store.open();
  const bool shows_register = literal.openStore();
  EXPECT_EQ(view == AssetStore::FirstView::asset_register, shows_register);
  expectSame();
}

void StorePair::saveNew(const AssetEntry& entry) {
  both([&](auto& side, auto& members) {
    members.CurrentRecord = newAsset(entry);
    std::int16_t index = 0;
    side.WriteData(index);
    EXPECT_EQ(std::to_string(index), members.CurrentRecord->RecIndex());
  });
}

void StorePair::saveEdited(std::int16_t index, const AssetEntry& entry) {
  both([&](auto& side, auto& members) {
    members.CurrentRecord = side.ReadData(index);
    enter(entry, *members.CurrentRecord);
    std::int16_t at = index;
    side.WriteData(at);
    EXPECT_EQ(at, index);
  });
}

void StorePair::remove(std::int16_t index) {
  both([&](auto& side, auto& members) {
    members.CurrentRecord = std::make_shared<CalculateDep>();
    std::int16_t start = 0;
    std::int16_t assets = 0;
    double years = 0;
    Date end;
    side.ReadTableInfo(start, years, assets, end);
    const auto records = registerWithout(side, assets, index);
    side.DeleteRecord(records,
                      assets == 1 ? std::int16_t{1} : static_cast<std::int16_t>(index - 1));
  });
}

void StorePair::expectSame() {
  if (literal.open) {
    const TableContent content = contentOf(*host->file());
    EXPECT_TRUE(content == literal.table) << "stored:\n"
                                          << describe(content) << "defined:\n"
                                          << describe(literal.table);
  }
  EXPECT_EQ(reports, literal.reports);
  EXPECT_EQ(state.TableName, literal.TableName);
  EXPECT_EQ(state.StartYr, literal.StartYr);
  EXPECT_EQ(state.NumYrs, literal.NumYrs);
  EXPECT_EQ(state.NumAssets, literal.NumAssets);
  EXPECT_EQ(state.FYEnd.toText(), literal.FYEnd.toText());
  EXPECT_EQ(describe(state.CurrentRecord), describe(literal.CurrentRecord));
}

void StorePair::adopt() {
  literal.table = contentOf(*host->file());
  literal.reports = reports;
  literal.TableName = state.TableName;
  literal.StartYr = state.StartYr;
  literal.NumYrs = state.NumYrs;
  literal.NumAssets = state.NumAssets;
  literal.FYEnd = state.FYEnd;
}

}  // namespace depcalc::testing_support
