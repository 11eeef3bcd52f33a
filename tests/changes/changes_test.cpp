// What users may enter of disposals and units, what it comes to, and how it is saved.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "changes/entering_units.h"
#include "host/failing/failing_host.h"
#include "tests/DepCalc/store_pair.h"

namespace depcalc {
namespace {

using testing::HasSubstr;
using namespace testing_support;

const Date today = Date::carrying(2026, 6, 1);

SavedAsset asset(const std::string& method, const std::string& convention = "0") {
  SavedAsset saved;
  saved.number = 1;
  saved.placed_in_service = Date::carrying(2024, 3, 15);
  saved.fiscal_year_end = Date::carrying(2024, 12, 31);
  saved.basis = Currency::fromTicks(100'000'000);
  saved.salvage = Currency::fromTicks(10'000'000);
  saved.capacity = "1,000";
  saved.life = 5;
  saved.convention = convention;
  saved.method = method;
  return saved;
}

TEST(Disposing, RefusesWhatCannotBe) {
  struct Case {
    const char* date;
    const char* proceeds;
    const char* refusal;  ///< "" for none
  };
  for (const Case& each : std::vector<Case>{
           {"2024-03-15", "", ""},
           {"03/15/2024", "0", ""},
           {"6/30", "9,999,999.99", ""},
           {"2076-06-01", "1250.5", ""},
           {"2024-03-14", "", "placed in service on 03/15/2024"},
           {"2076-06-02", "", "less than 50 years from today"},
           {"", "", "valid date"},
           {"2025-02-29", "", "valid date"},
           {"13/5/2025", "", "valid date"},
           {"12/30/1899", "", "valid date"},
           {"2025-01-01", "-0.01", "0 or more"},
           {"2025-01-01", "9999999.991", "at most 9,999,999.99"},
           {"2025-01-01", "$5", "must be a number"},
           {"2024-03-14", "x", "placed in service"},
       }) {
    const auto entered = disposalFrom(each.date, each.proceeds, asset("SL"), today);
    const auto* refusal = std::get_if<std::string>(&entered);
    EXPECT_EQ(refusal != nullptr, *each.refusal != '\0') << each.date << ' ' << each.proceeds;
    if (refusal != nullptr) {
      EXPECT_THAT(*refusal, HasSubstr(each.refusal)) << each.date << ' ' << each.proceeds;
    }
  }
}

TEST(Disposing, TakesProceedsToTheCent) {
  EXPECT_EQ(std::get<Currency>(proceedsFrom("1,250.505")), Currency::fromTicks(12'505'000));
  EXPECT_EQ(std::get<Currency>(proceedsFrom("")), Currency());
}

/// Straight line over five years from 15 March 2024, 9,000.00 to take; out on 20 August.
TEST(Disposing, SaysWhatItComesToInEachConvention) {
  struct Case {
    const char* convention;
    std::vector<std::int64_t> amounts;  ///< in whole units
    int year;
    double depreciation;
    double accumulated;
  };
  for (const Case& each : std::vector<Case>{
           {"0", {1800, 1800, 1800, 1800, 1800}, 2026, 0, 3600},
           {"1", {900, 1800, 1800, 1800, 1800, 900}, 2026, 900, 3600},
           {"2", {1500, 1800, 1800, 1800, 1800, 300}, 2026, 1050, 4350},
           {"3", {1500, 1800, 1800, 1800, 1800, 300}, 2026, 1200, 4500},
           {"4", {1436, 1800, 1800, 1800, 1800, 364}, 2026, 1139.18, 4375.18},
           {"1", {900, 1800, 1800, 1800, 1800, 900}, 2024, 0, 0},
           {"1", {900, 1800, 1800, 1800, 1800, 900}, 2029, 900, 9000},
           {"1", {900, 1800, 1800, 1800, 1800, 900}, 2031, 0, 9000},
       }) {
    SavedAsset saved = asset("SL", each.convention);
    for (const std::int64_t amount : each.amounts) {
      saved.amounts.push_back(Currency::fromTicks(amount * 10'000));
    }
    const Currency proceeds = Currency::fromTicks(50'000'000);
    const DisposalEffect effect = effectOf(saved, {Date::carrying(each.year, 8, 20), proceeds});
    EXPECT_TRUE(effect.scheduled);
    EXPECT_EQ(effect.fiscal_year, each.year);
    EXPECT_EQ(effect.depreciation.toText(), Currency::fromDouble(each.depreciation).toText())
        << each.convention << ' ' << each.year;
    EXPECT_EQ(effect.accumulated.toText(), Currency::fromDouble(each.accumulated).toText())
        << each.convention << ' ' << each.year;
    EXPECT_EQ(effect.book_value, saved.basis - effect.accumulated);
    EXPECT_EQ(effect.gain, proceeds - effect.book_value);
  }
}

TEST(Disposing, ReplacesWhatWasSavedOfADisposal) {
  SavedAsset saved = asset("SL", "1");
  saved.amounts.assign(6, Currency::fromTicks(18'000'000));
  const DisposalEffect fresh = effectOf(saved, {Date::carrying(2027, 1, 1), Currency()});
  saved.disposed = Date::carrying(2025, 1, 1);
  saved.proceeds = Currency::fromTicks(1);
  EXPECT_EQ(effectOf(saved, {Date::carrying(2027, 1, 1), Currency()}).gain, fresh.gain);
}

TEST(EnteringUnits, RefusesWhatCannotBe) {
  for (const char* good : {"0", "12.5", "1,000", "999999999999", " 5 ", "1e3"}) {
    EXPECT_TRUE(std::holds_alternative<double>(unitsFrom(good))) << good;
  }
  for (const char* bad : {"", "x", "-1", "-0.001", "999999999999.5", "1e12", "$1"}) {
    EXPECT_TRUE(std::holds_alternative<std::string>(unitsFrom(bad))) << bad;
  }
  EXPECT_EQ(std::get<double>(unitsFrom("0.12345678901234567")), 0.123456789012346) << "15 digits";
  EXPECT_FALSE(std::signbit(std::get<double>(unitsFrom("-0"))));

  for (const char* other : {"SL", "SYD", "DDB", "", "other"}) {
    EXPECT_TRUE(refusedUnits(asset(other)).has_value()) << other;
  }
  EXPECT_FALSE(refusedUnits(asset("UOP")).has_value());
  EXPECT_FALSE(refusedUnits(asset("uop")).has_value());
  for (const int year : {2023, 0, 10'000}) {
    EXPECT_TRUE(refusedUnitsYear(asset("UOP"), year).has_value()) << year;
  }
  for (const int year : {2024, 9999}) {
    EXPECT_FALSE(refusedUnitsYear(asset("UOP"), year).has_value()) << year;
  }
}

TEST(EnteringUnits, SaysWhatEachYearTakesAndWhatIsLeft) {
  SavedAsset saved = asset("UOP");
  saved.amounts = {Currency::fromTicks(90'000)};
  const std::vector<UnitsRow> rows = unitsRows(saved, {{2024, 400}, {2026, 700}}, 2025);
  ASSERT_EQ(rows.size(), 5U) << "five years of life";
  EXPECT_EQ(rows[0].year, 2024);
  EXPECT_EQ(rows[0].amount, Currency::fromTicks(36'000'000));
  EXPECT_EQ(rows[0].left, 600);
  EXPECT_FALSE(rows[1].units.has_value());
  EXPECT_EQ(rows[1].amount, Currency());
  EXPECT_EQ(rows[1].left, 600);
  EXPECT_EQ(rows[2].amount, Currency::fromTicks(54'000'000)) << "no more than is left";
  EXPECT_EQ(rows[4].left, -100);
  EXPECT_EQ(unitsRows(saved, {}, 2031).size(), 8U);
  EXPECT_EQ(unitsRows(saved, {{2040, 1}}, 2025).size(), 17U);
  EXPECT_EQ(unitsRows(saved, {}, 20'000).back().year, 9999);
}

class ChangesOn : public testing::TestWithParam<HostKind> {
 protected:
  ChangesOn() {
    for (const char* id : {"A1", "A2", "A3"}) {
      StoreState state;
      state.m_orvcf = host_->file();
      AssetStore store(state, [] { return today; });
      (void)store.open();
      state.CurrentRecord = newAsset({.id = id, .method = "UOP", .capacity = "1000"});
      std::int16_t index = 0;
      store.WriteData(index);
    }
    EXPECT_EQ(saveUnits(assets_, 2, {{2024, 5}}), std::nullopt);
  }

  void tamper(const std::string& name, const StoredValue& value) {
    const auto record = host_->file()->OpenTable("ZEM:DepCalc")->Item(2);
    record->BeginEdit();
    record->Fields().SetValue(name, value);
    record->Modified(true);
    record->Commit();
  }

  std::unique_ptr<TestHost> host_ = GetParam().make(Date::carrying(2024, 1, 1));
  std::shared_ptr<FailurePlan> plan_ = std::make_shared<FailurePlan>();
  CompanyAssets assets_{failingCompanyFile(host_->file(), plan_), today};
};

TEST_P(ChangesOn, SaveADisposalAndTakeItBack) {
  const TableContent before = contentOf(*host_->file());
  const Disposal disposal{Date::carrying(2025, 8, 20), Currency::fromTicks(12'505'000)};
  EXPECT_EQ(whyNotSavedAnew(assets_, 2), std::nullopt);
  EXPECT_EQ(saveDisposal(assets_, 2, disposal), std::nullopt);
  EXPECT_EQ(savedAsset(assets_, 2).disposed, disposal.date);
  EXPECT_EQ(savedAsset(assets_, 2).proceeds, disposal.proceeds);
  EXPECT_EQ(savedAsset(assets_, 2).units, (UnitsByYear{{2024, 5}}));
  EXPECT_EQ(saveDisposal(assets_, 2, std::nullopt), std::nullopt);
  EXPECT_TRUE(contentOf(*host_->file()) == before);
}

TEST_P(ChangesOn, RefuseAnAssetThatCannotBeReadWhole) {
  tamper("ADept", StoredValue::real(5));
  EXPECT_THAT(whyNotSavedAnew(assets_, 2).value_or(""), HasSubstr("ADept"));
  EXPECT_EQ(whyNotSavedAnew(assets_, 1), std::nullopt);
  tamper("ADept", StoredValue::text(""));
  tamper("RecIndex", StoredValue::integer(3));
  EXPECT_THAT(whyNotSavedAnew(assets_, 2).value_or(""), HasSubstr("it is number 3"));
}

TEST_P(ChangesOn, RefuseToAddToAnotherAssetsUnits) {
  EXPECT_EQ(foreignUnits(assets_, 2), std::nullopt);
  EXPECT_EQ(foreignUnits(assets_, 1), std::nullopt);
  tamper("AID", StoredValue::text("B2"));
  EXPECT_THAT(foreignUnits(assets_, 2).value_or(""), HasSubstr("another asset, \"A2\""));
  EXPECT_TRUE(savedAsset(assets_, 2).units.empty());
}

TEST_P(ChangesOn, AreSavedWholeOrNotAtAllWhicheverCallFails) {
  const std::vector<std::function<std::optional<std::string>()>> changes{
      [&] {
        return saveDisposal(assets_, 2, Disposal{Date::carrying(2025, 1, 1), Currency()});
      },
      [&] {
        return saveUnits(assets_, 2, {{2024, 7}, {2026, 8}});
      },
      [&] { return saveUnits(assets_, 2, {}); }};
  for (const auto& change : changes) {
    const TableContent before = contentOf(*host_->file());
    int failed = 0;
    for (int call = 1;; ++call) {
      *plan_ = {.counts = FailurePlan::Counts::changes, .fail_at = call, .calls = 0};
      const auto report = change();
      if (plan_->calls < call) {
        EXPECT_EQ(report, std::nullopt);
        break;
      }
      ++failed;
      EXPECT_TRUE(report.has_value()) << call;
      EXPECT_TRUE(contentOf(*host_->file()) == before) << call;
    }
    EXPECT_GT(failed, 1);
    EXPECT_FALSE(contentOf(*host_->file()) == before);
  }
}

INSTANTIATE_TEST_SUITE_P(Hosts, ChangesOn, testing::ValuesIn(hostKindsWithUnits()),
                         [](const auto& kind) { return testNameOf(kind.param); });

}  // namespace
}  // namespace depcalc
