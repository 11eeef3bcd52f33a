#include "DepCalc/recalculation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/method_results.h"
#include "host/failing/failing_host.h"
#include "host/memory/memory_host.h"

namespace depcalc {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const Date today = Date::strict(2024, 6, 1);

class RecalculationTest : public testing::Test {
 protected:
  /// As saved when the company's fiscal year ended in December.
  void save(const std::string& id, const std::string& method, double basis = 1200) {
    const auto asset = std::make_shared<CalculateDep>();
    asset->AssetID(id);
    asset->AssetBasis(Currency::fromDouble(basis));
    asset->AssetStartDate(Date::strict(2023, 3, 15));
    asset->FYEnd(Date::strict(2023, 12, 31));
    asset->DepRecovery(3);
    asset->DepConvention("2");
    asset->AssetProdCap("800");
    asset->DepMethod(method);
    calculateChosen(*asset);
    assets_.store().open();
    assets_.store().DepCalcContSaveRecord(asset);
  }

  void set(std::int16_t index, std::string_view name, StoredValue value) {
    const auto record = file_->OpenTable(asset_table_name)->Item(index);
    record->Fields().SetValue(name, std::move(value));
    record->Modified(true);
    record->Commit();
  }

  std::vector<std::string> contents() {
    std::vector<std::string> all;
    const auto table = file_->OpenTable(asset_table_name);
    for (std::int32_t i = 0; i < table->Count(); ++i) {
      const auto record = table->Item(static_cast<std::int16_t>(i));
      for (const std::string& name : record->Fields().names()) {
        const StoredValue value = record->Fields().GetValue(name);
        all.push_back(std::to_string(i) + name + std::string(value.typeName()) + value.asText());
      }
    }
    return all;
  }

  std::optional<std::string> saveAll(const Recalculation& result) {
    return saveRecalculation(assets_, result, [](std::size_t) {});
  }

  std::shared_ptr<MemoryCompanyFile> file_ = std::make_shared<MemoryCompanyFile>(
      Date::strict(2024, 1, 1), MemoryCompanyFile::Units::offered);
  CompanyAssets assets_{file_, today};
};

TEST_F(RecalculationTest, FindsNothingToDoInWhatIsCalculated) {
  for (const char* method : {"SL", "SYD", "DDB", "UOP", ""}) save("A", method);
  const Recalculation result = recalculated(assets_, FiscalYearEnds::company);
  EXPECT_THAT(result.changes, IsEmpty());
  EXPECT_THAT(result.to_save, IsEmpty());
  EXPECT_EQ(result.calculated, 4);
  EXPECT_EQ(result.without_method, 1);
}

TEST_F(RecalculationTest, GivesTheAmountsThatAnImportGives) {
  for (const char* method : {"SL", "SYD", "DDB", "UOP", ""}) save("A", method);
  file_->fiscalYearStart(Date::strict(2024, 4, 1));
  EXPECT_EQ(assetsOfOtherFiscalYears(assets_), 5);
  EXPECT_THAT(recalculated(assets_, FiscalYearEnds::own).changes, IsEmpty());
  const Recalculation result = recalculated(assets_, FiscalYearEnds::company);
  EXPECT_EQ(result.moved, 5);
  EXPECT_THAT(result.to_save, SizeIs(5));
  ASSERT_EQ(saveAll(result), std::nullopt);
  for (std::int32_t i = 1; i <= 5; ++i) {
    const CalculateDepPtr saved = assets_.asset(i);
    const CalculateDepPtr fresh = assets_.asset(i);
    calculateChosen(*fresh);
    // Behind the rate nothing is saved.
    const std::size_t count = saved->DepMethod() == "UOP" ? 1 : saved->depItems().size();
    for (std::size_t y = 0; y < count; ++y) {
      EXPECT_EQ(saved->depItems()[y], fresh->depItems()[y]) << i << ", year " << y;
    }
    EXPECT_EQ(saved->FYEnd(), Date::strict(2024, 3, 31));
  }
  EXPECT_EQ(assetsOfOtherFiscalYears(assets_), 0);
  EXPECT_THAT(recalculated(assets_, FiscalYearEnds::company).to_save, IsEmpty());
}

TEST_F(RecalculationTest, ListsAmountsByFiscalYear) {
  save("A", "SL");
  set(1, "ABasis", StoredValue::currency(Currency::fromText("2400")));
  const Recalculation result = recalculated(assets_, FiscalYearEnds::own);
  std::vector<std::string> lines;
  for (const ChangedAmount& each : result.changes) {
    lines.push_back(std::to_string(*each.fiscal_year) + ": " + each.before.toText() + ", " +
                    each.after.toText());
  }
  EXPECT_THAT(lines, ElementsAre("2023: 333.33, 666.67", "2024: 400, 800", "2025: 400, 800",
                                 "2026: 66.67, 133.33"));
}

TEST_F(RecalculationTest, CountsALeapDayAsAnotherFiscalYear) {
  file_->fiscalYearStart(Date::strict(2023, 3, 1));
  save("A", "SL");
  set(1, "FYEnd", StoredValue::date(Date::strict(2024, 2, 29)));
  EXPECT_EQ(assetsOfOtherFiscalYears(assets_), 1);
  EXPECT_EQ(recalculated(assets_, FiscalYearEnds::company).moved, 1);
}

TEST_F(RecalculationTest, NamesAndLeavesWhatTheFormWouldRefuse) {
  struct Case {
    const char* name;
    StoredValue value;
    std::string reason;
  };
  const std::vector<Case> cases{
      {"DRecovery", StoredValue::real(0), "Please enter the useful life."},
      {"DRecovery", StoredValue::real(51), "Please enter a number less than or equal to 50."},
      {"ABasis", StoredValue::currency(Currency()), "Please enter the basis."},
      {"ABasis", StoredValue::currency(Currency::fromText("-1")),
       "The basis must be a positive number."},
      {"ASalvage", StoredValue::currency(Currency::fromText("1200.01")),
       "The salvage value of the asset must be less than the basis."},
      {"AStart", StoredValue::date(Date()), "Please enter the Placed-in-service Date."},
      {"AStart", StoredValue::date(Date::strict(9998, 1, 1)),
       "The schedule would run beyond the year 9999."},
      {"DMethod", StoredValue::text("XL"), "\"XL\" is not a depreciation method."},
      {"ABasis", StoredValue::text("plenty"), "In record 1, ABasis has the type String."},
      {"Dep0", StoredValue::text("plenty"), "In record 1, Dep0 has the type String."},
      {"RecIndex", StoredValue::integer(7), "Its record has the number 7 instead of 1."},
  };
  save("A", "SL");
  save("B", "SL");
  for (const Case& each : cases) {
    const StoredValue kept =
        file_->OpenTable(asset_table_name)->Item(1)->Fields().GetValue(each.name);
    set(1, each.name, each.value);
    set(2, "ABasis", StoredValue::currency(Currency::fromText("2400")));
    const Recalculation result = recalculated(assets_, FiscalYearEnds::company);
    ASSERT_THAT(result.left, SizeIs(1)) << each.reason;
    EXPECT_EQ(result.left[0].number, 1);
    EXPECT_EQ(result.left[0].reason, each.reason);
    ASSERT_THAT(result.to_save, SizeIs(1));
    EXPECT_EQ(result.to_save[0]->AssetID(), "B");
    set(1, each.name, kept);
  }
}

TEST_F(RecalculationTest, CountsTheAssetsThatItSaves) {
  for (const char* method : {"SL", "SYD", "DDB"}) save("A", method);
  file_->fiscalYearStart(Date::strict(2024, 4, 1));
  std::vector<std::size_t> counted;
  const auto report = saveRecalculation(assets_, recalculated(assets_, FiscalYearEnds::company),
                                        [&](std::size_t saved) { counted.push_back(saved); });
  EXPECT_EQ(report, std::nullopt);
  EXPECT_THAT(counted, ElementsAre(1, 2, 3));
}

TEST_F(RecalculationTest, SavesAllOrNothingWhicheverCallFails) {
  for (const char* method : {"SL", "SYD", "DDB"}) save("A", method);
  file_->fiscalYearStart(Date::strict(2024, 4, 1));
  const auto before = contents();
  const Recalculation result = recalculated(assets_, FiscalYearEnds::company);
  const auto plan = std::make_shared<FailurePlan>();
  CompanyAssets failing(failingCompanyFile(file_, plan), today);
  int failures = 0;
  while (true) {
    plan->calls = 0;
    plan->fail_at = failures + 1;
    const auto report = saveRecalculation(failing, result, [](std::size_t) {});
    if (!report) break;
    ASSERT_EQ(contents(), before) << failures;
    ++failures;
  }
  EXPECT_GT(failures, 100);
  EXPECT_NE(contents(), before);
}

}  // namespace
}  // namespace depcalc
