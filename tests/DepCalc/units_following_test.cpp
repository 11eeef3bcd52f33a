// Units stay with their assets, whatever the calculator does and whatever fails meanwhile.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <random>

#include "DepCalc/company_assets.h"
#include "DepCalc/recalculation.h"
#include "DepCalc/units_following.h"
#include "changes/disposing.h"
#include "host/failing/failing_host.h"
#include "tests/DepCalc/store_pair.h"

namespace depcalc {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using namespace testing_support;

/// The calculator's store over a host whose units follow.
class Followed {
 public:
  explicit Followed(const HostKind& kind) : host_(kind.make(Date::carrying(2024, 1, 1))) { open(); }

  void open() {
    file_ = std::make_shared<UnitsFollowing>(failingCompanyFile(host_->file(), plan));
    state.m_orvcf = file_;
    store_ = std::make_unique<AssetStore>(state, [] { return Date::carrying(2024, 6, 1); });
    (void)store_->open();
  }
  void reopen() {
    host_->close();
    host_->reopen();
    open();
  }

  void saveNew(const AssetEntry& entry) {
    state.CurrentRecord = newAsset(entry);
    std::int16_t index = 0;
    store_->WriteData(index);
  }
  void saveEdited(int number, const AssetEntry& entry) {
    state.CurrentRecord = store_->ReadData(static_cast<std::int16_t>(number));
    enter(entry, *state.CurrentRecord);
    auto index = static_cast<std::int16_t>(number);
    store_->WriteData(index);
  }
  /// As the register does.
  void remove(int number) {
    const int count = assets();
    const auto records = registerWithout(*store_, count, number);
    file_->deletion(number, [&] {
      store_->DeleteRecord(records,
                           count == 1 ? std::int16_t{1} : static_cast<std::int16_t>(number - 1));
    });
  }
  void put(int number, const UnitsByYear& units) { UnitsStore(file_).put(number, units); }

  int assets() { return std::max(0, host_->file()->OpenTable("ZEM:DepCalc")->Count() - 1); }
  UnitsByYear unitsOf(int number) { return UnitsStore(host_->file()).unitsOf(number); }
  TableContent content() { return contentOf(*host_->file()); }
  HostCompanyFile& file() { return *file_; }
  std::shared_ptr<HostCompanyFile> shared() { return file_; }
  AssetStore& store() { return *store_; }

  std::shared_ptr<FailurePlan> plan = std::make_shared<FailurePlan>();
  StoreState state;

 private:
  std::unique_ptr<TestHost> host_;
  std::shared_ptr<UnitsFollowing> file_;
  std::unique_ptr<AssetStore> store_;
};

class UnitsFollowingOn : public testing::TestWithParam<HostKind> {
 protected:
  static constexpr int assets = 5;

  /// Asset n has n units.
  std::unique_ptr<Followed> sample() const {
    auto company = std::make_unique<Followed>(GetParam());
    for (int n = 1; n <= assets; ++n) {
      company->saveNew({.id = "A" + std::to_string(n), .method = "UOP", .capacity = "1000"});
      company->put(n, {{2024, 1.0 * n}});
    }
    return company;
  }
};

TEST_P(UnitsFollowingOn, MoveUpWithTheAssetsBehindADeletedOne) {
  for (int deleted = 1; deleted <= assets; ++deleted) {
    const auto company = sample();
    company->remove(deleted);
    ASSERT_EQ(company->assets(), assets - 1);
    for (int n = 1; n < assets; ++n) {
      EXPECT_THAT(company->unitsOf(n), ElementsAre(Pair(2024, 1.0 * (n < deleted ? n : n + 1))))
          << n << " after the deletion of " << deleted;
    }
    EXPECT_THAT(company->unitsOf(assets), IsEmpty());
  }
}

TEST_P(UnitsFollowingOn, GoWithTheOnlyAsset) {
  const auto company = sample();
  for (int n = assets; n > 0; --n) company->remove(n);
  EXPECT_THAT(company->content(), IsEmpty());
}

/// Nothing but their places tells them apart.
TEST_P(UnitsFollowingOn, StayApartWhereAssetsAreTwins) {
  for (const int deleted : {1, 2, 3}) {
    Followed company(GetParam());
    for (const int n : {1, 2, 3}) {
      company.saveNew({.method = "UOP"});
      company.put(n, {{2024, 1.0 * n}});
    }
    company.remove(deleted);
    EXPECT_THAT(company.unitsOf(1), ElementsAre(Pair(2024, deleted == 1 ? 2.0 : 1.0)));
    EXPECT_THAT(company.unitsOf(2), ElementsAre(Pair(2024, deleted == 3 ? 2.0 : 3.0)));
  }
}

TEST_P(UnitsFollowingOn, KnowAnAssetThatWasCorrected) {
  const auto company = sample();
  const std::vector<AssetEntry> corrections{
      {.id = "B3", .method = "UOP"},
      {.id = "B3", .method = "UOP", .start = Date::carrying(2023, 1, 31)},
      {.id = "B3", .method = "UOP", .start = Date::carrying(2023, 1, 31), .basis = 12},
      {.id = "", .method = "SL", .basis = 12}};
  for (const AssetEntry& correction : corrections) {
    company->saveEdited(3, correction);
    EXPECT_THAT(company->unitsOf(3), ElementsAre(Pair(2024, 3.0)));
    EXPECT_THAT(company->unitsOf(2), ElementsAre(Pair(2024, 2.0)));
  }
  company->saveNew({.id = "A6"});
  EXPECT_THAT(company->unitsOf(6), IsEmpty());
}

TEST_P(UnitsFollowingOn, StayWithoutTheirAssetWhereTheyWereNotItsBefore) {
  const auto company = sample();
  const auto record = company->file().OpenTable("UnitsProduced")->Item(3);
  record->BeginEdit();
  record->Fields().SetValue("AID", StoredValue::text("another"));
  record->Modified(true);
  record->Commit();
  company->saveEdited(3, {.id = "B3"});
  EXPECT_THAT(company->unitsOf(3), IsEmpty());
}

TEST_P(UnitsFollowingOn, StayWhereTheyAreWhenADeletionDeletesNothing) {
  const auto company = sample();
  const auto before = company->content();
  HostCompanyFile& file = company->file();
  dynamic_cast<UnitsFollowing&>(file).deletion(2, [&] {
    file.unitOfWork()->begin();
    file.unitOfWork()->end();
  });
  EXPECT_TRUE(company->content() == before);
}

TEST_P(UnitsFollowingOn, AreUndoneWithTheUnitOfWork) {
  const auto company = sample();
  const auto before = company->content();
  HostUnitOfWork& unit = *company->file().unitOfWork();
  unit.begin();
  company->saveEdited(3, {.id = "B3"});
  company->put(1, {});
  unit.abandon();
  EXPECT_TRUE(company->content() == before);
  company->saveEdited(3, {.id = "C3"});
  EXPECT_THAT(company->unitsOf(3), ElementsAre(Pair(2024, 3.0)));
}

/// Each call to the host fails once, while an asset is deleted.
TEST_P(UnitsFollowingOn, GoWithTheirAssetsOrStayWithThemWhicheverCallOfADeletionFails) {
  TableContent before;
  TableContent after;
  {
    const auto company = sample();
    before = company->content();
    company->remove(2);
    after = company->content();
  }
  int calls = 0;
  bool failed = true;
  for (int call = 1; failed; ++call) {
    const auto company = sample();
    const auto records = registerWithout(company->store(), assets, 2);
    std::vector<std::string> reports;
    const ErrorReportHook hook(
        [&](const ErrorReport& report) { reports.push_back(report.text()); });
    company->plan->calls = 0;
    company->plan->fail_at = call;
    dynamic_cast<UnitsFollowing&>(company->file()).deletion(2, [&] {
      company->store().DeleteRecord(records, 1);
    });
    failed = company->plan->calls >= call;
    EXPECT_EQ(reports.empty(), !failed) << "who listens outside hears of it, too";
    EXPECT_TRUE(company->content() == (failed ? before : after)) << "call " << call << '\n'
                                                                 << describe(company->content());
    calls = call;
  }
  EXPECT_GT(calls, 300);
}

/// Each call fails once, while an asset is saved under another ID: what is kept of that is as the
/// store leaves it, and the units know the asset.
TEST_P(UnitsFollowingOn, KnowTheirAssetWhicheverCallOfASaveFails) {
  int calls = 0;
  int kept_old = 0;
  bool failed = true;
  for (int call = 1; failed; ++call) {
    const auto company = sample();
    company->state.CurrentRecord = company->store().ReadData(3);
    company->state.CurrentRecord->AssetID("B3");
    company->plan->calls = 0;
    company->plan->fail_at = call;
    std::int16_t index = 3;
    company->store().WriteData(index);
    failed = company->plan->calls >= call;
    EXPECT_THAT(company->unitsOf(3), ElementsAre(Pair(2024, 3.0))) << "call " << call;
    const std::string id = company->content()[3]["aid"].asText();
    EXPECT_TRUE(failed || id == "B3");
    if (id == "A3") ++kept_old;
    calls = call;
  }
  EXPECT_GT(calls, 60);
  EXPECT_GT(kept_old, 20);
}

/// Whatever is done, the units are those that a list beside the register has.
class RandomUnits {
 public:
  RandomUnits(const HostKind& kind, unsigned seed) : random_(seed), company_(kind) {}

  void take() {
    if (model_.empty() || (model_.size() < 8 && pick(3) == 0)) return add();
    switch (pick(8)) {
      case 5:
        return dispose();
      case 6:
        return recalculate();
      case 0:
        return edit();
      case 1:
        return remove();
      case 2:
        return import();
      case 3:
        return company_.reopen();
      default:
        return enterUnits();
    }
  }

  void expectSame() {
    ASSERT_EQ(company_.assets(), static_cast<int>(model_.size()));
    for (std::size_t i = 0; i < model_.size(); ++i) {
      EXPECT_EQ(company_.unitsOf(static_cast<int>(i) + 1), model_[i]) << "asset " << i + 1;
    }
    std::size_t entries = 0;
    for (const auto& [index, values] : company_.content()) entries += index < 0 ? 1 : 0;
    std::size_t expected = 0;
    for (const UnitsByYear& units : model_) expected += units.empty() ? 0 : 1;
    EXPECT_EQ(entries, expected);
  }

 private:
  int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
  int number() { return 1 + pick(static_cast<int>(model_.size())); }
  AssetEntry entry() {
    return {.id = std::to_string(pick(3)),
            .life = 1.0 + pick(5),
            .method = pick(2) == 0 ? "UOP" : "DDB",
            .start = Date::carrying(2020 + pick(4), 1 + pick(12), 1),
            .basis = 1 + pick(2),
            .capacity = "100"};
  }

  void add() {
    company_.saveNew(entry());
    model_.emplace_back();
  }
  void edit() { company_.saveEdited(number(), entry()); }
  void remove() {
    const int gone = number();
    company_.remove(gone);
    model_.erase(model_.begin() + gone - 1);
  }
  void import() {
    HostUnitOfWork& unit = *company_.file().unitOfWork();
    const auto before = model_;
    unit.begin();
    for (int i = pick(3); i >= 0; --i) add();
    if (pick(3) == 0) {
      unit.abandon();
      model_ = before;
    } else {
      unit.end();
    }
  }
  void dispose() {
    CompanyAssets assets(company_.shared(), Date::carrying(2024, 6, 1));
    const std::int32_t of = number();
    const Date start = assets.asset(of)->AssetStartDate();
    std::optional<Disposal> disposal = Disposal{start.plusDays(pick(1000)), Currency()};
    if (pick(3) == 0) disposal.reset();
    EXPECT_EQ(saveDisposal(assets, of, disposal), std::nullopt);
    EXPECT_EQ(savedAsset(assets, of).disposed, disposal.value_or(Disposal()).date);
  }
  void recalculate() {
    CompanyAssets assets(company_.shared(), Date::carrying(2024, 6, 1));
    const Recalculation all = recalculated(assets, FiscalYearEnds::company);
    EXPECT_EQ(saveRecalculation(assets, all, [](std::size_t) {}), std::nullopt);
  }
  void enterUnits() {
    const int of = number();
    UnitsByYear units;
    for (int i = pick(3); i > 0; --i) units[2020 + pick(5)] = pick(1000) / 8.0;
    company_.put(of, units);
    model_[static_cast<std::size_t>(of) - 1] = units;
  }

  std::mt19937 random_;
  Followed company_;
  std::vector<UnitsByYear> model_;
};

TEST_P(UnitsFollowingOn, AreThoseOfAListBesideTheRegisterAfterAnySteps) {
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  for (unsigned walk = 0; walk < 10; ++walk) {
    RandomUnits random(GetParam(), seed + walk);
    for (int step = 0; step < 60; ++step) {
      random.take();
      random.expectSame();
      ASSERT_FALSE(HasFailure()) << "seed " << seed << ", walk " << walk << ", step " << step;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Hosts, UnitsFollowingOn, testing::ValuesIn(hostKindsWithUnits()),
                         [](const auto& kind) { return testNameOf(kind.param); });

}  // namespace
}  // namespace depcalc
