// Units produced in the company file, on every host.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DepCalc/units_store.h"
#include "tests/DepCalc/store_pair.h"

namespace depcalc {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing_support::contentOf;
using testing_support::HostKind;
using testing_support::hostKinds;
using testing_support::newAsset;
using testing_support::testNameOf;

class UnitsStoreOn : public testing::TestWithParam<HostKind> {
 protected:
  UnitsStoreOn() {
    StoreState state;
    state.m_orvcf = host_->file();
    AssetStore store(state, [] { return Date::carrying(2024, 6, 1); });
    (void)store.open();
    for (const char* id : {"A1", "A2", "A3", "A4", "A5"}) {
      state.CurrentRecord = newAsset({.id = id, .method = "UOP", .capacity = "1000"});
      std::int16_t index = 0;
      store.WriteData(index);
    }
  }

  UnitsStore units() { return UnitsStore(host_->file()); }

  /// Sets a value of asset `index` behind the back of whoever keeps units.
  void tamper(std::int16_t index, const std::string& name, const StoredValue& value) {
    const auto record = host_->file()->OpenTable("ZEM:DepCalc")->Item(index);
    record->BeginEdit();
    record->Fields().SetValue(name, value);
    record->Modified(true);
    record->Commit();
  }

  std::unique_ptr<testing_support::TestHost> host_ = GetParam().make(Date::carrying(2024, 1, 1));
};

TEST_P(UnitsStoreOn, HasNoneAtFirstAndMakesNothingByReading) {
  const auto before = contentOf(*host_->file());
  EXPECT_THAT(units().numbers(), IsEmpty());
  EXPECT_FALSE(units().has(1));
  EXPECT_FALSE(units().entry(1).has_value());
  EXPECT_THAT(units().unitsOf(1), IsEmpty());
  EXPECT_THAT(units().unitsOf(0), IsEmpty()) << "the summary is no asset";
  EXPECT_THAT(units().unitsOf(99'999), IsEmpty());
  EXPECT_TRUE(contentOf(*host_->file()) == before);
}

TEST_P(UnitsStoreOn, KeepsThemByYearThroughClosing) {
  units().put(4, {{2026, 999'999'999'999.0}, {2024, 0.0}, {2025, 12.345}});
  units().put(2, {{2024, 7.0}});
  host_->close();
  host_->reopen();
  EXPECT_THAT(units().numbers(), ElementsAre(2, 4));
  const auto entry = units().entry(4);
  ASSERT_TRUE(entry.has_value());
  EXPECT_EQ(entry->number, 4);
  EXPECT_EQ(entry->id, "A4");
  EXPECT_TRUE(entry->known);
  EXPECT_THAT(entry->units,
              ElementsAre(Pair(2024, 0.0), Pair(2025, 12.345), Pair(2026, 999'999'999'999.0)));
  EXPECT_THAT(units().unitsOf(2), ElementsAre(Pair(2024, 7.0)));
}

TEST_P(UnitsStoreOn, PutsThemInThePlaceOfThoseBefore) {
  units().put(4, {{2024, 1.0}, {2025, 2.0}});
  units().put(4, {{2025, 3.0}});
  EXPECT_THAT(units().unitsOf(4), ElementsAre(Pair(2025, 3.0)));
  units().put(4, {});
  EXPECT_FALSE(units().has(4)) << "without units there is no record";
  EXPECT_THAT(units().numbers(), IsEmpty());
}

TEST_P(UnitsStoreOn, MovesThoseBehindADeletedAssetUp) {
  for (const int number : {1, 3, 4}) units().put(number, {{2024, 1.0 * number}});
  units().assetDeleted(3);
  EXPECT_THAT(units().numbers(), ElementsAre(1, 3));
  EXPECT_THAT(units().entry(3)->units, ElementsAre(Pair(2024, 4.0)));
  EXPECT_EQ(units().entry(3)->id, "A4");
  units().assetDeleted(5);
  units().assetDeleted(1);
  EXPECT_THAT(units().numbers(), ElementsAre(2));
  units().assetDeleted(2);
  EXPECT_THAT(units().numbers(), IsEmpty());
}

TEST_P(UnitsStoreOn, DoesNotKnowAnotherAssetByAnyOfItsMarks) {
  units().put(2, {{2024, 5.0}});
  const std::vector<std::pair<std::string, StoredValue>> others{
      {"AID", StoredValue::text("B2")},
      {"AName", StoredValue::text("Van")},
      {"ASerial", StoredValue::text("SN-1")},
      {"AStart", StoredValue::date(Date::carrying(2024, 3, 16))},
      {"ABasis", StoredValue::currency(Currency::fromTicks(1))}};
  for (const auto& [name, other] : others) {
    const auto own = host_->file()->OpenTable("ZEM:DepCalc")->Item(2)->Fields().GetValue(name);
    ASSERT_TRUE(units().entry(2)->known);
    tamper(2, name, other);
    EXPECT_FALSE(units().entry(2)->known) << name;
    EXPECT_EQ(units().entry(2)->id, "A2") << "as it was entered";
    EXPECT_THAT(units().unitsOf(2), IsEmpty()) << name;
    tamper(2, name, own);
  }
  tamper(2, "DMethod", StoredValue::text("SL"));
  EXPECT_TRUE(units().entry(2)->known) << "what changes is still the same asset";
}

TEST_P(UnitsStoreOn, DoesNotKnowAnAssetBeyondTheRegister) {
  units().put(5, {{2024, 5.0}});
  const auto last = host_->file()->OpenTable("ZEM:DepCalc")->Item(5);
  last->BeginEdit();
  last->Delete();
  ASSERT_TRUE(units().entry(5).has_value());
  EXPECT_FALSE(units().entry(5)->known);
}

TEST_P(UnitsStoreOn, KnowsASavedAssetByItsNewMarksIfItKnewItBefore) {
  units().put(2, {{2024, 5.0}});
  const auto before = units().marksOfAsset(2);
  tamper(2, "AID", StoredValue::text("B2"));
  units().assetSaved(2, before);
  EXPECT_TRUE(units().entry(2)->known);
  EXPECT_EQ(units().entry(2)->id, "B2");
  EXPECT_THAT(units().unitsOf(2), ElementsAre(Pair(2024, 5.0)));

  tamper(2, "AID", StoredValue::text("C2"));  // nobody said so
  const auto foreign = units().marksOfAsset(2);
  tamper(2, "AID", StoredValue::text("D2"));
  units().assetSaved(2, foreign);
  EXPECT_FALSE(units().entry(2)->known) << "it was not the asset's before either";
}

/// Who wrote them otherwise than here.
TEST_P(UnitsStoreOn, TakesNothingForUnitsThatIsNone) {
  units().put(2, {{2024, 5.0}});
  const auto record = host_->file()->OpenTable("UnitsProduced")->Item(2);
  record->BeginEdit();
  for (const char* name : {"FY", "FY20x4", "FYEND", "Units"}) {
    record->Fields().SetValue(name, StoredValue::real(9));
  }
  record->Fields().SetValue("FY2025", StoredValue::text("9"));
  record->Modified(true);
  record->Commit();
  EXPECT_THAT(units().unitsOf(2), ElementsAre(Pair(2024, 5.0)));
}

INSTANTIATE_TEST_SUITE_P(Hosts, UnitsStoreOn, testing::ValuesIn(hostKinds()),
                         [](const auto& kind) { return testNameOf(kind.param); });

}  // namespace
}  // namespace depcalc
