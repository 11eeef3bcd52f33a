// What SQL sees of a company is what is in it.
#include <gtest/gtest.h>

#include <iostream>
#include <random>
#include <sstream>

#include "DepCalc/company_assets.h"
#include "engine/convention.h"
#include "engine/first_fiscal_year.h"
#include "tests/host/postgresql/server_fixture.h"

namespace depcalc {
namespace {

using namespace testing_support;
using ServerViews = OnServer;

std::string dateText(Date date) { return date.isNone() ? "" : date.toIsoText(); }

/// A row of depcalc.asset as psql prints it.
std::string rowOf(std::int32_t number, CalculateDep& asset) {
  const bool by_units = asset.DepMethod() == "UOP";
  std::ostringstream row;
  row << number << '|' << asset.AssetID() << '|' << asset.AssetName() << '|' << asset.ASerial()
      << '|' << asset.ADept() << '|' << dateText(asset.AssetStartDate()) << '|'
      << asset.AssetBasis().toFixed4() << '|' << asset.AssetSalvage().toFixed4() << '|'
      << asset.DepRecovery() << '|' << conventionName(asset.DepConvention()) << '|'
      << asset.DepMethod() << '|' << asset.AssetProdCap() << '|'
      << (by_units ? asset.DepItem(0).toFixed4() : "") << '|' << dateText(asset.AssetEndDate())
      << '|' << (asset.AssetEndDate().isNone() ? "" : asset.ASalePrice()) << '|'
      << dateText(asset.FYEnd()) << '|' << firstFiscalYear(asset.AssetStartDate(), asset.FYEnd())
      << '\n';
  return row.str();
}

std::string amountsOf(std::int32_t number, CalculateDep& asset) {
  std::ostringstream rows;
  if (asset.DepMethod() == "UOP") return "";
  const int first = firstFiscalYear(asset.AssetStartDate(), asset.FYEnd());
  const int years = static_cast<int>(asset.DepRecovery()) + (asset.DepConvention() != "0" ? 1 : 0);
  for (int year = 0; year < years; ++year) {
    rows << number << '|' << first + year << '|'
         << asset.DepItem(static_cast<std::int16_t>(year)).toFixed4() << '\n';
  }
  return rows.str();
}

TEST_F(ServerViews, HaveEveryAssetAndEveryAmount) {
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  const ServerFile file = open();
  const Date today = Date::carrying(2024, 6, 1);
  file->unitOfWork()->begin();
  StoreState state;
  state.m_orvcf = file;
  AssetStore store(state, [today] { return today; });
  (void)store.open();
  constexpr const char* methods[] = {"SL", "SYD", "DDB", "UOP"};
  for (int i = 0; i < 300; ++i) {
    AssetEntry entry{.id = "X" + std::to_string(i)};
    entry.life = 1 + static_cast<int>(random() % 50);
    entry.convention = std::to_string(random() % 5);
    entry.method = methods[random() % 4];
    entry.start = Date::carrying(1960 + static_cast<int>(random() % 90), 1,
                                 1 + static_cast<int>(random() % 365));
    entry.fiscal_year_end = Date::carrying(2024, 1 + static_cast<int>(random() % 12), 28);
    if (random() % 4 == 0) entry.fiscal_year_end = Date::carrying(2024, 2, 29);
    entry.basis = random() % 100'000'000;
    entry.capacity = std::to_string(1 + random() % 100'000);
    state.CurrentRecord = newAsset(entry);
    if (random() % 5 == 0) state.CurrentRecord->AssetEndDate(today);
    std::int16_t index = 0;
    store.WriteData(index);
  }
  file->unitOfWork()->end();
  CompanyAssets assets(file, today);
  std::string rows;
  std::string amounts;
  for (std::int32_t i = 1; i <= assets.assetCount(); ++i) {
    const CalculateDepPtr asset = assets.asset(i);
    rows += rowOf(i, *asset);
    amounts += amountsOf(i, *asset);
  }
  EXPECT_EQ(assets.assetCount(), 302);
  EXPECT_EQ(sql("SELECT asset, asset_id, name, serial_number, department, placed_in_service, basis,"
                " salvage, life, convention, method, capacity, production_rate, disposed, proceeds,"
                " fiscal_year_end, first_fiscal_year FROM depcalc.asset WHERE company = " +
                filed() + " ORDER BY asset"),
            rows)
      << "seed " << seed;
  EXPECT_EQ(sql("SELECT asset, fiscal_year, amount FROM depcalc.asset_amount WHERE company = " +
                filed() + " ORDER BY asset, fiscal_year"),
            amounts)
      << "seed " << seed;
}

/// One company's odd values are nothing to the others.
TEST_F(ServerViews, ReadWhatNoAssetHasWithoutAnError) {
  {
    const ServerFile file = open();
    const auto record = file->OpenTable("ZEM:DepCalc")->Item(1);
    for (const char* const name : {"AID", "AStart", "ABasis", "DRecovery", "FYEnd", "Dep0"}) {
      record->Fields().SetValue(name, StoredValue::text("not \xFF so"));
    }
    record->Fields().SetValue("AName", StoredValue::text(std::string("nul \0 char", 10)));
    record->Fields().SetValue("ASalvage", StoredValue());
    record->Modified(true);
    record->Commit();
  }
  EXPECT_EQ(sql("SELECT asset, asset_id, name, placed_in_service, basis, salvage, life FROM"
                " depcalc.asset WHERE company = " +
                filed() + " AND asset = 1"),
            "1|not \xEF\xBF\xBD so|nul \xEF\xBF\xBD char||||\n");
  EXPECT_EQ(sql("SELECT count(*) FROM depcalc.asset_amount WHERE company = " + filed() +
                " AND asset = 1"),
            "0\n");
}

}  // namespace
}  // namespace depcalc
