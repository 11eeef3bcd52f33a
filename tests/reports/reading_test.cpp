// A register read for its reports, from every kind of host.
#include "reports/reading/register_reading.h"

#include <gtest/gtest.h>

#include "DepCalc/asset_store.h"
#include "DepCalc/units_store.h"
#include "tests/support/test_hosts.h"

namespace depcalc {
namespace {

using testing_support::HostKind;
using testing_support::TestHost;

class RegisterReading : public testing::TestWithParam<HostKind> {
 protected:
  std::unique_ptr<TestHost> host_ = GetParam().make(Date::strict(2024, 4, 1));

  void put(std::int16_t index, const std::vector<std::pair<const char*, StoredValue>>& values) {
    const auto record = host_->file()->OpenTable(asset_table_name)->Add(index);
    record->BeginEdit();
    for (const auto& [name, value] : values) record->Fields().SetValue(name, value);
    record->Modified(true);
    record->Commit();
  }

  RegisterOfAssets read() {
    return readRegisterOfAssets(host_->file(), "Nine Oaks", Date::strict(2024, 6, 1));
  }
};

Currency money(const char* text) { return Currency::fromText(text); }

std::vector<std::pair<const char*, StoredValue>> press() {
  return {{"RecIndex", StoredValue::integer(1)},
          {"AID", StoredValue::text("P-1")},
          {"AName", StoredValue::text("Press")},
          {"ASerial", StoredValue::text("S")},
          {"ADept", StoredValue::text("Yard")},
          {"AEnd", StoredValue::date(Date::strict(2024, 5, 1))},
          {"ASale", StoredValue::text("1,250.5")},
          {"ABasis", StoredValue::currency(money("1000"))},
          {"AStart", StoredValue::date(Date::strict(2022, 7, 1))},
          {"ASalvage", StoredValue::currency(money("100"))},
          {"AProdCap", StoredValue::text("500")},
          {"DRecovery", StoredValue::real(2)},
          {"DConvention", StoredValue::text("1")},
          {"FYEnd", StoredValue::date(Date::strict(2024, 3, 31))},
          {"DMethod", StoredValue::text("SL")},
          {"Dep0", StoredValue::currency(money("225"))},
          {"Dep1", StoredValue::text("")},
          {"Dep2", StoredValue::currency(money("225"))},
          {"Dep3", StoredValue::currency(money("7"))}};
}

TEST_P(RegisterReading, FindsNothingInANewFile) {
  const RegisterOfAssets assets = read();
  EXPECT_TRUE(assets.assets.empty());
  EXPECT_EQ(assets.company, "Nine Oaks");
  EXPECT_EQ(assets.years.lastDay(2024), Date::strict(2024, 3, 31));
}

TEST_P(RegisterReading, TakesEveryValueAsSaved) {
  put(0, {{"Start", StoredValue::integer(2023)}, {"NumYears", StoredValue::real(2.5)}});
  put(1, press());
  const RegisterOfAssets assets = read();
  EXPECT_EQ(assets.start, 2023);
  EXPECT_EQ(assets.span, 2);
  ASSERT_EQ(assets.assets.size(), 1U);
  const SavedAsset& saved = assets.assets.front().saved();
  EXPECT_EQ(saved.number, 1);
  EXPECT_EQ(saved.id + saved.name + saved.serial + saved.department, "P-1PressSYard");
  EXPECT_EQ(saved.disposed, Date::strict(2024, 5, 1));
  EXPECT_EQ(saved.proceeds, money("1250.5"));
  EXPECT_EQ(saved.basis, money("1000"));
  EXPECT_EQ(saved.placed_in_service, Date::strict(2022, 7, 1));
  EXPECT_EQ(saved.salvage, money("100"));
  EXPECT_EQ(saved.capacity, "500");
  EXPECT_EQ(saved.life, 2);
  EXPECT_EQ(saved.convention + saved.method, "1SL");
  EXPECT_EQ(saved.fiscal_year_end, Date::strict(2024, 3, 31));
  EXPECT_EQ(saved.amounts, (std::vector<Currency>{money("225"), Currency(), money("225")}));
  EXPECT_TRUE(saved.unreadable.empty());
}

/// The calculator would stop at the basis and leave out what comes behind.
TEST_P(RegisterReading, GoesOnBehindAValueThatIsNone) {
  auto values = press();
  values[6].second = StoredValue::text("a lot");
  values[7].second = StoredValue::text("much");
  values[11].second = StoredValue::text("two");
  put(0, {});
  put(1, values);
  put(2, {{"AID", StoredValue::text("EMPTY")}});
  const RegisterOfAssets assets = read();
  ASSERT_EQ(assets.assets.size(), 2U);
  const SavedAsset& saved = assets.assets.front().saved();
  EXPECT_EQ(saved.proceeds, Currency());
  EXPECT_EQ(saved.basis, Currency());
  EXPECT_EQ(saved.life, 0);
  EXPECT_EQ(saved.salvage, money("100"));
  EXPECT_EQ(saved.unreadable,
            (std::vector<std::string>{"In record 1, ABasis has the type String.",
                                      "In record 1, DRecovery has the type String."}));
  EXPECT_EQ(assets.assets.back().saved().id, "EMPTY");
  EXPECT_FALSE(assets.assets.back().isScheduled());
}

TEST_P(RegisterReading, KnowsTheUnitsOfItsAssets) {
  auto values = press();
  values[14].second = StoredValue::text("UOP");
  put(0, {});
  put(1, values);
  put(2, press());
  UnitsStore units(host_->file());
  units.put(1, {{2023, 40}, {2024, 12.5}});
  units.put(2, {{2023, 1}});
  const auto record = host_->file()->OpenTable(asset_table_name)->Item(2);
  record->BeginEdit();
  record->Fields().SetValue("AID", StoredValue::text("ANOTHER"));
  record->Modified(true);
  record->Commit();
  const RegisterOfAssets assets = read();
  EXPECT_EQ(assets.assets.front().saved().units, (UnitsByYear{{2023, 40}, {2024, 12.5}}));
  EXPECT_EQ(assets.assets.front().saved().amounts, std::vector<Currency>{money("225")});
  EXPECT_TRUE(assets.assets.back().saved().units.empty());
  EXPECT_EQ(assets.units_not_known, std::vector<std::int32_t>{2});
  const SavedAsset alone = readSavedAsset(host_->file(), 1, Date::strict(2024, 6, 1));
  EXPECT_EQ(alone.units, assets.assets.front().saved().units);
  EXPECT_EQ(alone.amounts, assets.assets.front().saved().amounts);
  EXPECT_TRUE(readSavedAsset(host_->file(), 2, Date::strict(2024, 6, 1)).units.empty());
}

INSTANTIATE_TEST_SUITE_P(OnEveryHost, RegisterReading,
                         testing::ValuesIn(testing_support::hostKinds()),
                         [](const auto& test) { return testing_support::testNameOf(test.param); });

}  // namespace
}  // namespace depcalc
