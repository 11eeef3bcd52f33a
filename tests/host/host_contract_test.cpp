// What every host promises, on every host.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "host/failing/failing_host.h"
#include "host/host.h"
#include "host/memory/memory_host.h"
#include "host/unit_of_work.h"
#include "tests/support/test_hosts.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

using testing_support::HostKind;
using testing_support::hostKinds;
using testing_support::hostKindsWithUnits;
using testing_support::TestHost;
using testing_support::testNameOf;

template <typename Body>
int errorNumber(Body&& body) {
  try {
    body();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

class EveryHost : public testing::TestWithParam<HostKind> {
 protected:
  std::shared_ptr<HostTable> table() { return host_->file()->OpenTable("ZEM:DepCalc"); }
  void store(std::int16_t index, std::string_view name, StoredValue value) {
    const auto record = table()->Exists(index) ? table()->Item(index) : table()->Add(index);
    record->Fields().SetValue(name, std::move(value));
    record->Modified(true);
    record->Commit();
  }
  StoredValue stored(std::int16_t index, std::string_view name) {
    return table()->Item(index)->Fields().GetValue(name);
  }

  std::unique_ptr<TestHost> host_ = GetParam().make(Date::carrying(2024, 7, 1));
};

TEST_P(EveryHost, MakesATableThatIsNotThere) {
  EXPECT_EQ(table()->Count(), 0);
  EXPECT_FALSE(table()->Exists(0));
  EXPECT_EQ(errorNumber([&] { host_->file()->OpenTable(""); }), 5);
}

TEST_P(EveryHost, KeepsTablesApart) {
  store(0, "A", StoredValue::integer(1));
  EXPECT_EQ(host_->file()->OpenTable("other")->Count(), 0);
}

TEST_P(EveryHost, CountsAnAddedRecordAtOnce) {
  const auto record = table()->Add(3);
  EXPECT_EQ(table()->Count(), 1);
  EXPECT_TRUE(table()->Exists(3));
  EXPECT_TRUE(table()->Item(3)->Fields().names().empty());
  host_->close();
  host_->reopen();
  EXPECT_EQ(table()->Count(), 1);
}

TEST_P(EveryHost, RefusesIndicesThatCannotBe) {
  store(1, "A", StoredValue());
  EXPECT_EQ(errorNumber([&] { table()->Add(1); }), 5);
  EXPECT_EQ(errorNumber([&] { table()->Add(-1); }), 5);
  EXPECT_EQ(errorNumber([&] { table()->Item(0); }), 9);
  EXPECT_EQ(errorNumber([&] { table()->Item(-1); }), 9);
  EXPECT_FALSE(table()->Exists(-1));
  store(32767, "A", StoredValue::integer(7));
  EXPECT_EQ(stored(32767, "A").asLong(), 7);
}

TEST_P(EveryHost, ShowsUncommittedValuesOnlyToTheObjectThatSetThem) {
  store(0, "A", StoredValue::integer(1));
  const auto editing = table()->Item(0);
  EXPECT_EQ(editing->BeginEdit(), 0);
  editing->Fields().SetValue("A", StoredValue::integer(2));
  EXPECT_EQ(editing->Fields().GetValue("A").asLong(), 2);
  EXPECT_EQ(stored(0, "A").asLong(), 1);
  editing->Modified(true);
  editing->Commit();
  EXPECT_EQ(stored(0, "A").asLong(), 2);
}

TEST_P(EveryHost, CommitsOnlyWhatIsMarkedModified) {
  store(0, "A", StoredValue::integer(1));
  const auto editing = table()->Item(0);
  editing->Fields().SetValue("A", StoredValue::integer(2));
  editing->Commit();
  EXPECT_EQ(stored(0, "A").asLong(), 1);
  editing->Modified(true);
  editing->Commit();
  editing->Fields().SetValue("A", StoredValue::integer(3));
  editing->Commit();
  EXPECT_EQ(stored(0, "A").asLong(), 2);
}

TEST_P(EveryHost, KeepsARecordObjectAsItWasMade) {
  store(0, "A", StoredValue::integer(1));
  const auto before = table()->Item(0);
  store(0, "A", StoredValue::integer(2));
  EXPECT_EQ(before->Fields().GetValue("A").asLong(), 1);
}

TEST_P(EveryHost, DeletesAndThenKnowsTheRecordNoMore) {
  store(0, "A", StoredValue::integer(1));
  store(1, "A", StoredValue::integer(2));
  const auto gone = table()->Item(1);
  const auto same = table()->Item(1);
  gone->Delete();
  EXPECT_EQ(table()->Count(), 1);
  EXPECT_FALSE(table()->Exists(1));
  EXPECT_EQ(errorNumber([&] { gone->Delete(); }), 9);
  same->Modified(true);
  EXPECT_EQ(errorNumber([&] { same->Commit(); }), 9);
  host_->close();
  host_->reopen();
  EXPECT_EQ(table()->Count(), 1);
  EXPECT_EQ(stored(0, "A").asLong(), 1);
}

TEST_P(EveryHost, KeepsEveryTypeOfValue) {
  std::vector<StoredValue> values{
      StoredValue(),
      StoredValue::integer(-32768),
      StoredValue::integer(32767),
      StoredValue::real(0.1),
      StoredValue::real(-0.0),
      StoredValue::real(5),
      StoredValue::real(std::numeric_limits<double>::max()),
      StoredValue::real(std::numeric_limits<double>::denorm_min()),
      StoredValue::currency(Currency::fromTicks(0)),
      StoredValue::currency(Currency::fromTicks(-1)),
      StoredValue::currency(Currency::fromTicks(std::numeric_limits<std::int64_t>::max())),
      StoredValue::currency(Currency::fromTicks(std::numeric_limits<std::int64_t>::min())),
      StoredValue::date(Date()),
      StoredValue::date(Date::carrying(100, 1, 1)),
      StoredValue::date(Date::carrying(9999, 12, 31)),
      StoredValue::text(""),
      StoredValue::text("2024"),
      StoredValue::text("2024-01-01"),
      StoredValue::text("caf\xC3\xA9 \"\\/\b\f\n\r\t\x01\x7F \xE2\x82\xAC"),
      StoredValue::text(std::string("a\0b", 3)),
      StoredValue::text("\xFF\xC3"),
      StoredValue::text(std::string(100'000, 'x')),
  };
  constexpr std::size_t no_utf8 = 20;
  const auto record = table()->Add(0);
  for (std::size_t i = 0; i < values.size(); ++i) {
    record->Fields().SetValue("V" + std::to_string(i), values[i]);
  }
  record->Modified(true);
  record->Commit();
  host_->close();
  host_->reopen();
  const std::string unreadable = GetParam().keeps_bytes ? "\xFF\xC3" : "\xEF\xBF\xBD\xEF\xBF\xBD";
  values[no_utf8] = StoredValue::text(unreadable);
  const auto read = table()->Item(0);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const StoredValue value = read->Fields().GetValue("V" + std::to_string(i));
    EXPECT_TRUE(value == values[i]) << i << " " << value.typeName() << " " << value.asText();
    EXPECT_EQ(std::signbit(values[i].type() == StoredValue::Type::real ? value.get<double>() : 0.0),
              i == 4);
  }
}

TEST_P(EveryHost, IgnoresTheCaseOfNamesAndKeepsTheirFirstSpelling) {
  store(0, "FYEND", StoredValue::integer(1));
  EXPECT_EQ(stored(0, "FYEnd").asLong(), 1);
  store(0, "fyend", StoredValue::integer(2));
  store(0, "\"quoted\" \\ \xC3\xA9", StoredValue::integer(3));
  host_->close();
  host_->reopen();
  EXPECT_THAT(table()->Item(0)->Fields().names(),
              testing::ElementsAre("FYEND", "\"quoted\" \\ \xC3\xA9"));
  EXPECT_EQ(stored(0, "FYEND").asLong(), 2);
}

TEST_P(EveryHost, ReadsANameNeverSetAsEmpty) {
  table()->Add(0);
  EXPECT_TRUE(stored(0, "Start") == StoredValue());
}

TEST_P(EveryHost, RefusesValuesThatCannotBeKept) {
  const auto record = table()->Add(0);
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_EQ(errorNumber([&] { record->Fields().SetValue("", StoredValue()); }), 5);
  EXPECT_EQ(errorNumber([&] { record->Fields().SetValue("A", StoredValue::real(infinite)); }), 5);
}

TEST_P(EveryHost, TellsItsFiscalYearAndMode) {
  EXPECT_EQ(host_->file()->FiscalYearStart(), Date::carrying(2024, 7, 1));
  EXPECT_FALSE(host_->file()->IsMultiUser());
  EXPECT_NE(host_->file()->PalettePicture(), nullptr);
}

TEST_P(EveryHost, HandsOutNoFiscalYearWhoseEveIsALeapDay) {
  host_->fiscalYearStart(Date::strict(2024, 3, 1));
  EXPECT_EQ(host_->file()->FiscalYearStart(), Date::strict(2023, 3, 1));
  host_->fiscalYearStart(Date::strict(2025, 3, 1));
  EXPECT_EQ(host_->file()->FiscalYearStart(), Date::strict(2025, 3, 1));
}

TEST_P(EveryHost, AnswersNothingOnceClosed) {
  store(0, "A", StoredValue::integer(1));
  const auto file = host_->file();
  const auto open_table = table();
  const auto record = open_table->Item(0);
  record->Modified(true);
  host_->close();
  EXPECT_EQ(errorNumber([&] { file->OpenTable("ZEM:DepCalc"); }), 91);
  EXPECT_EQ(errorNumber([&] { (void)file->FiscalYearStart(); }), 91);
  EXPECT_EQ(errorNumber([&] { (void)file->IsMultiUser(); }), 91);
  EXPECT_EQ(errorNumber([&] { (void)file->PalettePicture(); }), 91);
  EXPECT_EQ(errorNumber([&] { (void)open_table->Count(); }), 91);
  EXPECT_EQ(errorNumber([&] { (void)open_table->Exists(0); }), 91);
  EXPECT_EQ(errorNumber([&] { open_table->Item(0); }), 91);
  EXPECT_EQ(errorNumber([&] { open_table->Add(1); }), 91);
  EXPECT_EQ(errorNumber([&] { record->Commit(); }), 91);
  EXPECT_EQ(errorNumber([&] { record->Delete(); }), 91);
}

struct Counting final : HostCompanyFileEvents {
  void CompanyFileClosing() override { ++closings; }
  int closings = 0;
};

TEST_P(EveryHost, TellsItsListenersOfTheClosingOnce) {
  Counting heard;
  Counting dismissed;
  const auto file = host_->file();
  file->advise(heard);
  file->advise(dismissed);
  file->unadvise(dismissed);
  host_->close();
  EXPECT_EQ(heard.closings, 1);
  EXPECT_EQ(dismissed.closings, 0);
}

class EveryHostWithUnits : public EveryHost {};
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(EveryHostWithUnits);  // where no host has them

TEST_P(EveryHostWithUnits, UndoesAnAbandonedUnitAndKeepsAnEndedOne) {
  HostUnitOfWork* unit = host_->file()->unitOfWork();
  store(0, "A", StoredValue::integer(1));
  store(1, "A", StoredValue::integer(2));
  unit->begin();
  store(0, "A", StoredValue::integer(5));
  store(2, "A", StoredValue::integer(6));
  table()->Item(1)->Delete();
  EXPECT_EQ(stored(0, "A").asLong(), 5);
  const std::uint64_t revision = unit->revision();
  unit->abandon();
  EXPECT_GT(unit->revision(), revision);
  EXPECT_EQ(table()->Count(), 2);
  EXPECT_EQ(stored(0, "A").asLong(), 1);
  EXPECT_EQ(stored(1, "A").asLong(), 2);

  unit->begin();
  unit->begin();
  store(0, "A", StoredValue::integer(7));
  unit->end();
  store(1, "A", StoredValue::integer(8));
  unit->end();
  host_->close();
  host_->reopen();
  EXPECT_EQ(stored(0, "A").asLong(), 7);
  EXPECT_EQ(stored(1, "A").asLong(), 8);
}

TEST_P(EveryHostWithUnits, RevisionMovesWithEveryChangeAndOnlyThen) {
  HostUnitOfWork* unit = host_->file()->unitOfWork();
  std::uint64_t last = unit->revision();
  const auto moved = [&] { return std::exchange(last, unit->revision()) != last; };
  const auto record = table()->Add(0);
  EXPECT_TRUE(moved());
  record->Fields().SetValue("A", StoredValue::integer(1));
  record->Commit();
  EXPECT_FALSE(moved());
  record->Modified(true);
  record->Commit();
  EXPECT_TRUE(moved());
  (void)table()->Item(0)->Fields().GetValue("A");
  EXPECT_FALSE(moved());
  record->Delete();
  EXPECT_TRUE(moved());
}

INSTANTIATE_TEST_SUITE_P(Hosts, EveryHost, testing::ValuesIn(hostKinds()),
                         [](const auto& kind) { return testNameOf(kind.param); });
INSTANTIATE_TEST_SUITE_P(Hosts, EveryHostWithUnits, testing::ValuesIn(hostKindsWithUnits()),
                         [](const auto& kind) { return testNameOf(kind.param); });

TEST(FailingHost, FailsTheCallItWasToldAndNoOther) {
  const auto memory = std::make_shared<MemoryCompanyFile>(Date::carrying(2024, 1, 1));
  const auto plan = std::make_shared<FailurePlan>();
  const auto file = failingCompanyFile(memory, plan);
  const auto use = [&] {
    const auto table = file->OpenTable("T");                                // 1
    const auto record = table->Exists(0) ? table->Item(0) : table->Add(0);  // 2, 3
    record->BeginEdit();                                                    // 4
    record->Fields().SetValue("A", StoredValue::integer(1));                // 5, 6
    (void)record->Fields().GetValue("A");                                   // 7, 8
    record->Modified(true);                                                 // 9
    record->Commit();                                                       // 10
    (void)table->Count();                                                   // 11
    (void)file->FiscalYearStart();                                          // 12
    (void)file->IsMultiUser();                                              // 13
    (void)file->PalettePicture();                                           // 14
    record->Delete();                                                       // 15
  };
  use();
  EXPECT_EQ(plan->calls, 15);
  for (int n = 1; n <= 15; ++n) {
    plan->calls = 0;
    plan->fail_at = n;
    EXPECT_EQ(errorNumber(use), 57) << n;
    EXPECT_EQ(plan->calls, n);
  }
  EXPECT_EQ(memory->OpenTable("T")->Count(), 1) << "the delete that failed did nothing";
}

struct CountingOpenings final : HostApplicationEvents {
  void CompanyFileOpened() override { ++openings; }
  int openings = 0;
};

TEST(MemoryApplication, TellsOfItsCompanyFile) {
  const auto application = std::make_shared<MemoryApplication>("/start");
  const auto plan = std::make_shared<FailurePlan>();
  const auto failing = failingApplication(application, plan);
  CountingOpenings heard;
  failing->advise(heard);
  EXPECT_FALSE(failing->IsCompanyFileOpen());
  EXPECT_EQ(failing->CompanyFile(), nullptr);
  EXPECT_EQ(failing->StartDirectory(), "/start");
  application->open(std::make_shared<MemoryCompanyFile>(Date::carrying(2024, 1, 1)));
  EXPECT_EQ(heard.openings, 1);
  EXPECT_TRUE(failing->IsCompanyFileOpen());
  const auto file = failing->CompanyFile();
  application->close();
  EXPECT_FALSE(failing->IsCompanyFileOpen());
  EXPECT_EQ(errorNumber([&] { (void)file->IsMultiUser(); }), 91);
  plan->fail_at = plan->calls + 1;
  EXPECT_EQ(errorNumber([&] { (void)failing->StartDirectory(); }), 57);
}

}  // namespace
}  // namespace depcalc
