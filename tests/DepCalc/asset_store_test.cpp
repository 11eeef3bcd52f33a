// What the store's procedures leave in the company file and in the container, case by case and
// on every host. Every step is also taken by the literal procedures and compared.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/unit_of_work.h"
#include "tests/DepCalc/store_pair.h"

namespace depcalc {
namespace {

using testing::ElementsAre;
using testing_support::describe;
using testing_support::HostKind;
using testing_support::newAsset;
using testing_support::storeHostKinds;
using testing_support::StorePair;
using testing_support::testNameOf;

class AssetStoreOn : public testing::TestWithParam<HostKind> {
 protected:
  StoredValue value(int index, std::string_view name) {
    const auto table = pair_.host->file()->OpenTable("ZEM:DepCalc");
    return table->Item(static_cast<std::int16_t>(index))->Fields().GetValue(name);
  }
  std::string shown(int index, std::string_view name) {
    const StoredValue found = value(index, name);
    return std::string(found.typeName()) + " " + found.asText();
  }
  std::int32_t count() { return pair_.host->file()->OpenTable("ZEM:DepCalc")->Count(); }
  /// Sets a value behind the store's back.
  void tamper(std::int16_t index, const std::string& name, const StoredValue& content) {
    const auto record = pair_.host->file()->OpenTable("ZEM:DepCalc")->Item(index);
    record->Fields().SetValue(name, content);
    record->Modified(true);
    record->Commit();
    pair_.literal.table[index][toLower(name)] = content;
  }
  static std::string toLower(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
  }

  StorePair pair_{GetParam()};
};

TEST_P(AssetStoreOn, OpensAFreshFileWithTheFiscalYearEndOnly) {
  EXPECT_EQ(pair_.store.open(), AssetStore::FirstView::entry_form);
  EXPECT_EQ(count(), 1);
  EXPECT_EQ(shown(0, "FYEND"), "Date 12/31/2023");
  EXPECT_EQ(shown(0, "Start"), "Empty ");
  EXPECT_EQ(pair_.store.open(), AssetStore::FirstView::entry_form) << "still no assets";
}

TEST_P(AssetStoreOn, LeavesTheStartYearAloneWhileNothingWasSaved) {
  pair_.openBoth();
  std::int16_t start = 1234;
  std::int16_t assets = -1;
  double years = -1;
  Date end;
  pair_.store.ReadTableInfo(start, years, assets, end);
  EXPECT_EQ(start, 1234);
  EXPECT_EQ(years, 0);
  EXPECT_EQ(assets, 0);
  EXPECT_EQ(end, Date::carrying(2023, 12, 31));
}

TEST_P(AssetStoreOn, AppendsNewAssetsAndAnswersTheirIndex) {
  pair_.openBoth();
  pair_.saveNew({.id = "A"});
  pair_.saveNew({.id = "B"});
  EXPECT_EQ(count(), 3);
  EXPECT_EQ(shown(2, "RecIndex"), "Integer 2");
  EXPECT_EQ(shown(2, "AID"), "String B");
  EXPECT_EQ(shown(2, "AEnd"), "Date 12/30/1899");
  EXPECT_EQ(shown(2, "ASale"), "String 0");
  EXPECT_EQ(shown(2, "ABasis"), "Currency 10000");
  EXPECT_EQ(shown(2, "AStart"), "Date 03/15/2024");
  EXPECT_EQ(shown(2, "AProdCap"), "String 0");
  EXPECT_EQ(shown(2, "DRecovery"), "Double 5");
  EXPECT_EQ(shown(2, "DConvention"), "String 0");
  EXPECT_EQ(shown(2, "DMethod"), "String SL");
  EXPECT_EQ(shown(0, "Start"), "Integer 2024");
  EXPECT_EQ(shown(0, "NumYears"), "Double 5");
  EXPECT_EQ(pair_.state.NumAssets, 2);
}

TEST_P(AssetStoreOn, WritesTheValuesInTheirOrder) {
  pair_.openBoth();
  pair_.saveNew({.life = 1});
  const auto names = pair_.host->file()->OpenTable("ZEM:DepCalc")->Item(1)->Fields().names();
  EXPECT_THAT(names, ElementsAre("RecIndex", "AID", "AName", "ASerial", "ADept", "AEnd", "ASale",
                                 "ABasis", "AStart", "ASalvage", "AProdCap", "DRecovery",
                                 "DConvention", "FYEnd", "DMethod", "Dep0", "Dep1", "Dep2"));
}

TEST_P(AssetStoreOn, WritesAmountsForTheRegistersYearsAndBlanksTheNext) {
  pair_.openBoth();
  pair_.saveNew({.life = 5});
  EXPECT_EQ(shown(1, "Dep4"), "Currency 1800");
  EXPECT_EQ(shown(1, "Dep5"), "Currency 0");
  EXPECT_EQ(shown(1, "Dep6"), "String ");
  pair_.saveNew({.life = 2});
  EXPECT_EQ(shown(2, "Dep2"), "Currency 0");
  EXPECT_EQ(shown(2, "Dep5"), "Currency 0") << "as many years as the register spans";
  EXPECT_EQ(shown(2, "Dep6"), "String ");
}

TEST_P(AssetStoreOn, KeepsStaleAmountsBeyondTheLastOneWritten) {
  pair_.openBoth();
  pair_.saveNew({.life = 8});
  pair_.saveEdited(1, {.life = 2});
  EXPECT_EQ(shown(1, "Dep2"), "Currency 0");
  EXPECT_EQ(shown(1, "Dep3"), "String ");
  EXPECT_EQ(shown(1, "Dep4"), "Currency 1125");
  EXPECT_EQ(shown(1, "Dep9"), "String ");
}

TEST_P(AssetStoreOn, LeavesASlotsFormerAssetsAmountsBeyondTheBound) {
  pair_.openBoth();
  pair_.saveNew({.id = "long", .life = 8});
  pair_.saveNew({.id = "short", .life = 2});
  pair_.remove(1);
  EXPECT_EQ(count(), 2);
  EXPECT_EQ(shown(1, "AID"), "String short");
  EXPECT_EQ(shown(1, "RecIndex"), "Integer 1");
  EXPECT_EQ(shown(1, "Dep4"), "Currency 1125") << "of the asset that had the slot";
}

TEST_P(AssetStoreOn, WritesTheRateAloneForUnitsOfProduction) {
  pair_.openBoth();
  pair_.saveNew({.life = 3, .method = "UOP", .capacity = "1000"});
  EXPECT_EQ(shown(1, "Dep0"), "Currency 9");
  EXPECT_EQ(shown(1, "Dep1"), "String ");
  EXPECT_EQ(shown(1, "Dep2"), "String ");
  EXPECT_EQ(shown(1, "Dep3"), "Empty ");
  EXPECT_EQ(shown(0, "NumYears"), "Double 1");
}

TEST_P(AssetStoreOn, TakesBothSpellingsForUnitsOfProductionInTheSummaryOnly) {
  pair_.openBoth();
  pair_.saveNew({.life = 3, .method = "uop", .capacity = "1000"});
  EXPECT_EQ(shown(0, "NumYears"), "Double 1");
  EXPECT_EQ(shown(1, "Dep1"), "Currency 3000") << "amounts as for any other method";
}

TEST_P(AssetStoreOn, BlanksEveryAmountWithoutAMethod) {
  pair_.openBoth();
  pair_.saveNew({.life = 2, .method = ""});
  for (const char* name : {"Dep0", "Dep1", "Dep2", "Dep3"}) {
    EXPECT_EQ(shown(1, name), "String ") << name;
  }
}

TEST_P(AssetStoreOn, StoresTodayWhereThereIsNoStartDate) {
  pair_.openBoth();
  pair_.saveNew({.start = Date(), .calculated = false});
  EXPECT_EQ(shown(1, "AStart"), "Date 06/01/2024");
  EXPECT_TRUE(pair_.state.CurrentRecord->AssetStartDate().isNone());
}

TEST_P(AssetStoreOn, NamesTheFirstFiscalYearByTheYearItEndsIn) {
  struct Case {
    Date start;
    Date end;
    int year;
  };
  const auto day = [](int y, int m, int d) { return Date::carrying(y, m, d); };
  const std::vector<Case> cases{
      {day(2001, 11, 15), day(2001, 9, 30), 2002},
      {day(2001, 9, 30), day(1999, 9, 30), 2001},
      {day(2001, 10, 1), day(1999, 9, 30), 2002},
      {day(2023, 3, 1), day(2024, 2, 29), 2023},  // 1 March of a common year
      {day(2023, 3, 2), day(2024, 2, 29), 2024},
      {day(2024, 3, 1), day(2024, 2, 29), 2025},
      {day(2024, 2, 29), day(2024, 2, 29), 2024},
  };
  for (const Case& each : cases) {
    StorePair pair(GetParam());
    pair.openBoth();
    pair.saveNew({.start = each.start, .fiscal_year_end = each.end, .calculated = false});
    EXPECT_EQ(pair.state.StartYr, each.year) << each.start.toText() << " " << each.end.toText();
  }
}

TEST_P(AssetStoreOn, CountsOneYearMoreForEveryConventionButFullYear) {
  for (const auto& [convention, years] :
       std::map<std::string, double>{{"0", 5}, {"1", 6}, {"4", 6}, {"-1", 6}}) {
    StorePair pair(GetParam());
    pair.openBoth();
    pair.saveNew({.life = 5, .convention = convention, .calculated = false});
    EXPECT_EQ(pair.state.NumYrs, years) << convention;
  }
}

TEST_P(AssetStoreOn, RoundsHalfYearsOfASpanToTheEvenNeighbour) {
  for (const auto& [life, years] :
       std::map<double, double>{{2.5, 2}, {3.5, 4}, {4.5, 4}, {0.5, 0}}) {
    StorePair pair(GetParam());
    pair.openBoth();
    pair.saveNew({.life = life, .calculated = false});
    EXPECT_EQ(pair.state.NumYrs, years) << life;
  }
}

TEST_P(AssetStoreOn, SpansFromTheEarliestFirstYearToTheLastYearOfAny) {
  pair_.openBoth();
  pair_.saveNew({.id = "late", .life = 3, .start = Date::carrying(2010, 5, 1)});
  pair_.saveNew({.id = "early", .life = 4, .start = Date::carrying(2003, 5, 1)});
  EXPECT_EQ(pair_.state.StartYr, 2003);
  EXPECT_EQ(pair_.state.NumYrs, 10);
}

TEST_P(AssetStoreOn, ReadsBackWhatItWrote) {
  pair_.openBoth();
  pair_.saveNew({.id = "A", .life = 3, .convention = "1", .method = "SYD"});
  pair_.saveNew({.id = "B", .life = 6, .convention = "4", .method = "DDB"});
  pair_.both([](auto& side, auto& members) { members.CurrentRecord = side.ReadData(2); });
  EXPECT_EQ(pair_.state.CurrentRecord->AssetID(), "B");
  EXPECT_EQ(pair_.state.CurrentRecord->RecIndex(), "2");
  EXPECT_FALSE(pair_.state.CurrentRecord->RecNew());
}

TEST_P(AssetStoreOn, ClearsTheCurrentRecordsNewFlagOnlyWhenAReadGetsToItsEnd) {
  pair_.openBoth();
  pair_.saveNew({.id = "A", .life = 5, .convention = "1"});
  pair_.saveNew({.id = "B", .life = 2, .method = ""});
  const auto current = newAsset({});
  pair_.state.CurrentRecord = current;
  const ErrorReportHook hook(
      [&](const ErrorReport& report) { pair_.reports.push_back(report.text()); });
  const auto stopped = pair_.store.ReadData(2);
  EXPECT_EQ(stopped->AssetID(), "B") << "filled up to the amount that is none";
  EXPECT_TRUE(current->RecNew());
  EXPECT_THAT(pair_.reports, ElementsAre("DepCalc::ReadData Error#13: Type mismatch"));
  const auto whole = pair_.store.ReadData(1);
  EXPECT_FALSE(current->RecNew());
}

TEST_P(AssetStoreOn, StopsAReadAtABlankAmountWithinTheLife) {
  pair_.openBoth();
  pair_.saveNew({.id = "A", .life = 2, .convention = "1"});
  tamper(1, "Dep1", StoredValue::text(""));
  pair_.both([](auto& side, auto& members) { members.CurrentRecord = side.ReadData(1); });
  EXPECT_EQ(pair_.state.CurrentRecord->DepItem(0), Currency::fromTicks(2250'0000));
  EXPECT_EQ(pair_.state.CurrentRecord->DepItem(2), Currency());
  EXPECT_THAT(pair_.reports, ElementsAre("DepCalc::ReadData Error#13: Type mismatch"));
}

TEST_P(AssetStoreOn, StopsAFullYearsReadAtTheBlankBehindTheRegistersYears) {
  // A life of 5 is read to Dep6; five register years are written to Dep5, and Dep6 is blank.
  pair_.openBoth();
  pair_.saveNew({.life = 5, .convention = "0"});
  const auto current = newAsset({});
  pair_.state.CurrentRecord = current;
  (void)pair_.store.ReadData(1);
  EXPECT_TRUE(current->RecNew()) << "the blank beyond the register's years ended the reading";
  pair_.saveNew({.life = 5, .convention = "1"});
  pair_.saveEdited(1, {.life = 5, .convention = "0"});
  pair_.state.CurrentRecord = current;
  (void)pair_.store.ReadData(1);
  EXPECT_FALSE(current->RecNew());
}

TEST_P(AssetStoreOn, AnswersABlankRecordWhereThereIsNone) {
  pair_.openBoth();
  pair_.both([](auto& side, auto& members) { members.CurrentRecord = side.ReadData(7); });
  EXPECT_EQ(describe(pair_.state.CurrentRecord), describe(std::make_shared<CalculateDep>()));
  EXPECT_TRUE(pair_.reports.empty());
}

TEST_P(AssetStoreOn, DeletesFromTheEndAndRewritesTheSlotsBefore) {
  pair_.openBoth();
  for (const char* id : {"A", "B", "C", "D", "E"}) pair_.saveNew({.id = id});
  pair_.remove(2);
  EXPECT_EQ(count(), 5);
  EXPECT_EQ(shown(1, "AID"), "String A");
  EXPECT_EQ(shown(2, "AID"), "String C");
  EXPECT_EQ(shown(4, "AID"), "String E");
  EXPECT_EQ(shown(4, "RecIndex"), "Integer 4");
  EXPECT_EQ(pair_.state.CurrentRecord->AssetID(), "E") << "the last record rewritten";
  pair_.remove(1);
  EXPECT_EQ(shown(1, "AID"), "String C");
  pair_.remove(3);
  EXPECT_EQ(count(), 3);
}

TEST_P(AssetStoreOn, LeavesAnEmptyTableBehindTheLastAsset) {
  pair_.openBoth();
  pair_.saveNew({});
  pair_.remove(1);
  EXPECT_EQ(count(), 0);
  pair_.openBoth();
  EXPECT_EQ(count(), 1);
}

TEST_P(AssetStoreOn, DeletesALoneSummary) {
  pair_.openBoth();
  pair_.both([](auto& side, auto&) { side.DeleteRecord({nullptr, nullptr}, 1); });
  EXPECT_EQ(count(), 0);
  pair_.both([](auto& side, auto&) { side.DeleteRecord({nullptr, nullptr}, 1); });
  EXPECT_TRUE(pair_.reports.empty());
}

TEST_P(AssetStoreOn, EndsADeletionAtTheEndOfTheCallersArray) {
  pair_.openBoth();
  for (const char* id : {"A", "B", "C"}) pair_.saveNew({.id = id, .convention = "1"});
  pair_.both([](auto& side, auto&) { side.DeleteRecord({side.ReadData(2)}, 0); });
  EXPECT_THAT(pair_.reports, ElementsAre("DepCalc::DeleteRecord Error#9: Subscript out of range"));
  EXPECT_EQ(count(), 3) << "the last slot is gone all the same";
}

TEST_P(AssetStoreOn, GoesOnDeletingWhereASlotHasNoRecord) {
  pair_.openBoth();
  for (const char* id : {"A", "B", "C"}) pair_.saveNew({.id = id, .convention = "1"});
  pair_.both([](auto& side, auto&) { side.DeleteRecord({nullptr, side.ReadData(3)}, 1); });
  EXPECT_THAT(pair_.reports, ElementsAre("DepCalc::WriteData Error#91: Object variable or With "
                                         "block variable not set"));
  EXPECT_EQ(shown(2, "AID"), "String C");
}

TEST_P(AssetStoreOn, MakesTheSavedRecordCurrent) {
  pair_.openBoth();
  pair_.saveNew({.id = "A"});
  const auto record = pair_.store.ReadData(1);
  record->AssetName("renamed");
  pair_.store.DepCalcContSaveRecord(record);
  EXPECT_EQ(pair_.state.CurrentRecord, record);
  EXPECT_EQ(shown(1, "AName"), "String renamed");
}

TEST_P(AssetStoreOn, FollowsTheHostsFiscalYear) {
  pair_.openBoth();
  pair_.saveNew({});
  pair_.host->fiscalYearStart(Date::carrying(2024, 4, 1));
  pair_.literal.fiscal_year_start = Date::carrying(2024, 4, 1);
  pair_.both([](auto& side, auto& members) {
    side.ReadTableInfo(members.StartYr, members.NumYrs, members.NumAssets, members.FYEnd);
  });
  EXPECT_EQ(pair_.state.FYEnd, Date::carrying(2024, 3, 31));
  EXPECT_EQ(shown(0, "FYEND"), "Date 12/31/2023") << "stored at the next save";
  pair_.both([](auto& side, auto&) { side.WriteTableInfo(); });
  EXPECT_EQ(shown(0, "FYEND"), "Date 03/31/2024");
}

TEST_P(AssetStoreOn, SumsUpARegisterWithoutAssets) {
  pair_.openBoth();
  pair_.both([](auto& side, auto&) { side.WriteTableInfo(); });
  EXPECT_EQ(shown(0, "Start"), "Integer 3000");
  EXPECT_EQ(shown(0, "NumYears"), "Double 0");
}

TEST_P(AssetStoreOn, SumsUpTheSameAfterTheSummarysOwnSlotWasRead) {
  pair_.openBoth();
  pair_.both([](auto& side, auto&) { (void)side.ReadData(0); });
  pair_.saveNew({.id = "A", .life = 7});
  pair_.saveNew({.id = "B", .life = 3});
  pair_.both([](auto& side, auto&) { (void)side.ReadData(0); });
  pair_.saveNew({.id = "C", .life = 5});
  EXPECT_EQ(shown(0, "NumYears"), "Double 7");
}

TEST_P(AssetStoreOn, SavesOnThoughTheSummaryCannotBeMade) {
  pair_.openBoth();
  pair_.saveNew({.id = "A", .life = 3});
  tamper(1, "DConvention", StoredValue::text("none"));
  pair_.saveNew({.id = "B", .life = 6});
  const std::string report = "DepCalc::WriteTableInfo Error#13: Type mismatch";
  EXPECT_THAT(pair_.reports, ElementsAre(report, report));
  EXPECT_EQ(shown(2, "Dep3"), "Currency 1500") << "by the summary as it was: three years";
  EXPECT_EQ(shown(2, "Dep4"), "String ");
  EXPECT_EQ(shown(2, "Dep5"), "Empty ");
  EXPECT_EQ(shown(0, "NumYears"), "Double 3");
}

TEST_P(AssetStoreOn, OverflowsWhereASpanOutgrowsSixteenBits) {
  pair_.openBoth();
  pair_.saveNew({.id = "A", .life = 3});
  pair_.saveNew({.id = "B", .life = 40'000, .calculated = false});
  EXPECT_THAT(pair_.reports, testing::Contains("DepCalc::WriteTableInfo Error#6: Overflow"));
}

TEST_P(AssetStoreOn, NeedsNothingButOpeningToSave) {
  pair_.both([](auto& side, auto& members) {
    members.CurrentRecord = newAsset({});
    std::int16_t index = 0;
    side.WriteData(index);
  });
  EXPECT_EQ(count(), 0) << "not opened: nothing is written and nothing said";
  pair_.both([](auto& side, auto& members) {
    side.WriteTableInfo();
    side.ReadTableInfo(members.StartYr, members.NumYrs, members.NumAssets, members.FYEnd);
    (void)side.ReadData(1);
    side.DeleteRecord({}, 0);
    side.DepCalcContSaveRecord(newAsset({}));
  });
  const std::string why = " Error#5: Invalid procedure call or argument";
  EXPECT_THAT(pair_.reports,
              ElementsAre("DepCalc::WriteTableInfo" + why, "DepCalc::ReadTableInfo" + why,
                          "DepCalc::ReadData" + why, "DepCalc::DeleteRecord" + why));
}

TEST_P(AssetStoreOn, EndsEveryProcedureWithError91WithoutACompanyFile) {
  pair_.openBoth();
  pair_.saveNew({});
  pair_.host->close();
  pair_.literal.open = false;
  pair_.state.m_orvcf = nullptr;
  pair_.both([](auto& side, auto& members) {
    side.WriteTableInfo();
    side.ReadTableInfo(members.StartYr, members.NumYrs, members.NumAssets, members.FYEnd);
    (void)side.ReadData(1);
    std::int16_t index = 1;
    side.WriteData(index);
    side.DeleteRecord({}, 0);
    side.DepCalcContSaveRecord(members.CurrentRecord);
    side.DepCalcContSaveRecord(nullptr);
  });
  EXPECT_EQ(pair_.reports.size(), 7U);
  EXPECT_EQ(pair_.reports.back(),
            "DepCalc::DepCalcContSaveRecord Error#91: Object variable or With block variable not "
            "set");
}

TEST_P(AssetStoreOn, RefusesWhatDoesNotFitAnIndex) {
  pair_.openBoth();
  pair_.saveNew({});
  pair_.both([](auto& side, auto&) {
    const auto record = newAsset({});
    record->RecIndex("40000");
    side.DepCalcContSaveRecord(record);
  });
  EXPECT_THAT(pair_.reports, ElementsAre("DepCalc::DepCalcContSaveRecord Error#6: Overflow"));
}

TEST_P(AssetStoreOn, HoldsAsManyAssetsAsSixteenBitsCount) {
  const auto host = GetParam().make(Date::carrying(2024, 1, 1));
  StoreState state;
  state.m_orvcf = host->file();
  AssetStore store(state, [] { return Date::carrying(2024, 6, 1); });
  (void)store.open();
  HostUnitOfWork* unit = host->file()->unitOfWork();
  if (unit != nullptr) unit->begin();
  const auto table = host->file()->OpenTable("ZEM:DepCalc");
  for (int i = 1; i <= 32'766; ++i) {
    const auto record = table->Add(static_cast<std::int16_t>(i));
    record->Fields().SetValue("AStart", StoredValue::date(Date::carrying(2024, 1, 1)));
    record->Fields().SetValue("FYEnd", StoredValue::date(Date::carrying(2024, 12, 31)));
    record->Fields().SetValue("DConvention", StoredValue::text("0"));
    record->Fields().SetValue("DRecovery", StoredValue::real(3));
    record->Modified(true);
    record->Commit();
  }
  if (unit != nullptr) unit->end();

  std::vector<std::string> reports;
  const ErrorReportHook hook([&](const ErrorReport& report) { reports.push_back(report.text()); });
  state.CurrentRecord = newAsset({.id = "last"});
  std::int16_t index = 0;
  store.WriteData(index);
  EXPECT_EQ(index, 32'767);
  EXPECT_EQ(state.NumAssets, 32'767);
  EXPECT_EQ(state.NumYrs, 5);
  EXPECT_THAT(reports, ElementsAre());

  state.CurrentRecord = newAsset({.id = "one more"});
  index = 0;
  store.WriteData(index);
  EXPECT_THAT(reports, ElementsAre("DepCalc::WriteData Error#6: Overflow"));
  EXPECT_EQ(index, 0);
  EXPECT_EQ(state.CurrentRecord->RecIndex(), "0");
  EXPECT_EQ(table->Count(), 32'768);
  EXPECT_EQ(table->Item(32'767)->Fields().GetValue("AID").asText(), "last");
}

/// A date without a year, as other programs may have written it, means another year next year.
TEST_P(AssetStoreOn, SumsUpADateWithoutAYearAnewWhenTheYearHasChanged) {
  const auto host = GetParam().make(Date::carrying(2024, 1, 1));
  Date today = Date::carrying(2024, 6, 1);
  StoreState state;
  state.m_orvcf = host->file();
  AssetStore store(state, [&today] { return today; });
  (void)store.open();
  const auto saveNew = [&] {
    state.CurrentRecord = newAsset({.start = Date::carrying(2030, 3, 15)});
    std::int16_t index = 0;
    store.WriteData(index);
  };
  saveNew();
  const auto first = host->file()->OpenTable("ZEM:DepCalc")->Item(1);
  first->Fields().SetValue("AStart", StoredValue::text("3/15"));
  first->Modified(true);
  first->Commit();
  saveNew();
  EXPECT_EQ(state.StartYr, 2024);
  today = Date::carrying(2020, 6, 1);
  saveNew();
  EXPECT_EQ(state.StartYr, 2020);
}

/// Where a host says what has changed, the store keeps account of the register's years.
TEST_P(AssetStoreOn, AsksTheHostNoMoreForASaveHoweverManyAssetsThereAre) {
  if (!GetParam().has_units) return;
  pair_.openBoth();
  for (int i = 0; i < 3; ++i) pair_.saveNew({.life = 3});
  const auto callsOfASave = [this] {
    const int before = pair_.plan->calls;
    pair_.saveEdited(2, {.life = 2});
    return pair_.plan->calls - before;
  };
  (void)callsOfASave();  // from now on the save changes nothing
  const int among_three = callsOfASave();
  for (int i = 0; i < 10; ++i) pair_.saveNew({.life = 3});
  EXPECT_EQ(callsOfASave(), among_three);
}

INSTANTIATE_TEST_SUITE_P(Hosts, AssetStoreOn, testing::ValuesIn(storeHostKinds()),
                         [](const auto& kind) { return testNameOf(kind.param); });

}  // namespace
}  // namespace depcalc
