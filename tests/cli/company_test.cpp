#include "cli/company.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/consistency.h"
#include "cli/deletion.h"
#include "engine/method_results.h"
#include "host/memory/memory_host.h"
#include "importing/asset_saving.h"

namespace depcalc {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const Date today = Date::strict(2024, 6, 1);

class CompanyTest : public testing::Test {
 protected:
  static CalculateDepPtr asset(const std::string& id, double life, const std::string& method,
                               const std::string& convention = "1") {
    auto record = std::make_shared<CalculateDep>();
    record->AssetID(id);
    record->AssetBasis(Currency::fromText("10000"));
    record->AssetSalvage(Currency::fromText("1000"));
    record->AssetStartDate(Date::strict(2023, 3, 15));
    record->FYEnd(Date::strict(2023, 12, 31));
    record->DepRecovery(life);
    record->DepConvention(convention);
    record->AssetProdCap("900");
    record->DepMethod(method);
    return record;
  }

  std::optional<std::string> save(const std::vector<CalculateDepPtr>& assets, bool keep = true) {
    return saveAssets(company_, assets, keep, [](std::size_t) {});
  }

  void set(std::int16_t index, std::string_view name, StoredValue value) {
    const auto record = file_->OpenTable(asset_table_name)->Item(index);
    record->Fields().SetValue(name, std::move(value));
    record->Modified(true);
    record->Commit();
  }

  StoredValue get(std::int16_t index, std::string_view name) {
    return file_->OpenTable(asset_table_name)->Item(index)->Fields().GetValue(name);
  }

  std::shared_ptr<MemoryCompanyFile> file_ = std::make_shared<MemoryCompanyFile>(
      Date::strict(2024, 1, 1), MemoryCompanyFile::Units::offered);
  Company company_{file_, "w.company", today};
};

TEST_F(CompanyTest, CalculatesByTheChosenMethod) {
  struct Case {
    const char* method;
    std::vector<std::string> amounts;
  };
  for (const Case& c : std::vector<Case>{
           {"SL", {"900", "1800", "1800", "1800", "1800", "900", "0"}},
           {"SYD", {"1500", "2700", "2100", "1500", "900", "300", "0"}},
           {"DDB", {"2000", "3200", "1920", "1152", "691.2", "36.8", "0"}},
       }) {
    const auto record = asset("A", 5, c.method);
    calculateChosen(*record);
    std::vector<std::string> amounts;
    for (const Currency amount : record->depItems()) amounts.push_back(amount.toText());
    EXPECT_EQ(amounts, c.amounts) << c.method;
    EXPECT_EQ(record->DepMethod(), c.method);
  }
}

TEST_F(CompanyTest, SavesTheRateOfUnitsOfProductionAlone) {
  ASSERT_EQ(save({asset("A", 5, "UOP")}), std::nullopt);
  EXPECT_EQ(get(1, "Dep0"), StoredValue::currency(Currency::fromText("10")));
  EXPECT_EQ(get(1, "Dep1"), StoredValue::text(""));
}

TEST_F(CompanyTest, SavesAnAssetWithoutMethodWithoutAmounts) {
  ASSERT_EQ(save({asset("A", 5, "")}), std::nullopt);
  EXPECT_EQ(get(1, "DMethod"), StoredValue::text(""));
  EXPECT_EQ(get(1, "Dep0"), StoredValue::text(""));
}

TEST_F(CompanyTest, UndoesADryRunAndWhateverMeetsAnError) {
  ASSERT_EQ(save({asset("A", 5, "SL")}, false), std::nullopt);
  EXPECT_EQ(file_->OpenTable(asset_table_name)->Count(), 0);

  // Nobody can calculate with a life of nothing.
  const auto report = save({asset("A", 5, "SL"), asset("B", 0, "SL")});
  ASSERT_NE(report, std::nullopt);
  EXPECT_THAT(*report, HasSubstr("DepCalc::CalcDepSL Error#11"));
  EXPECT_EQ(file_->OpenTable(asset_table_name)->Count(), 0);
}

TEST_F(CompanyTest, DeletesAsTheRegisterDoes) {
  for (const std::int32_t deleted : {1, 2, 3}) {
    ASSERT_EQ(save({asset("A", 5, "SL"), asset("B", 3, "DDB"), asset("C", 9, "SYD")}),
              std::nullopt);
    ASSERT_EQ(deleteAsset(company_, deleted), std::nullopt);
    std::string left;
    for (std::int32_t i = 1; i <= company_.assetCount(); ++i) left += company_.asset(i)->AssetID();
    EXPECT_EQ(left, std::string("ABC").erase(static_cast<std::size_t>(deleted - 1), 1));
    EXPECT_THAT(inconsistenciesOf(company_), IsEmpty());
    ASSERT_EQ(deleteAsset(company_, 1), std::nullopt);
    ASSERT_EQ(deleteAsset(company_, 1), std::nullopt);
    EXPECT_EQ(file_->OpenTable(asset_table_name)->Count(), 0);
  }
}

TEST_F(CompanyTest, DeletesNothingWhereAnAssetThatMovesUpCannotBeReadWhole) {
  for (const auto& [name, value] : std::vector<std::pair<const char*, StoredValue>>{
           {"ABasis", StoredValue::text("plenty")}, {"Dep1", StoredValue::text("much")}}) {
    ASSERT_EQ(save({asset("A", 5, "SL"), asset("B", 3, "DDB"), asset("C", 9, "SYD")}),
              std::nullopt);
    set(2, name, value);
    const std::string wrong = "In record 2, " + std::string(name) + " has the type String.";
    for (const std::int32_t deleted : {1, 3}) {
      EXPECT_EQ(deleteAsset(company_, deleted),
                wrong + " Deleting the asset would lose that value");
      EXPECT_EQ(company_.assetCount(), 3);
      EXPECT_EQ(get(2, "DMethod"), StoredValue::text("DDB"));
    }
    EXPECT_THAT(inconsistenciesOf(company_), Contains(wrong));
    EXPECT_EQ(deleteAsset(company_, 2), std::nullopt) << "itself it can be deleted";
    ASSERT_EQ(deleteAsset(company_, 2), std::nullopt);
    ASSERT_EQ(deleteAsset(company_, 1), std::nullopt);
  }
}

TEST_F(CompanyTest, FindsNothingWrongWithAnyStateThatSavesLeave) {
  EXPECT_THAT(inconsistenciesOf(company_), IsEmpty());
  company_.store().open();
  EXPECT_THAT(inconsistenciesOf(company_), IsEmpty());
  ASSERT_EQ(save({asset("A", 5, "SL"), asset("B", 20, "UOP"), asset("C", 7, "", "0")}),
            std::nullopt);
  EXPECT_THAT(inconsistenciesOf(company_), IsEmpty());
}

TEST_F(CompanyTest, FindsEveryInconsistency) {
  ASSERT_EQ(save({asset("A", 5, "SL"), asset("B", 3, "SL"), asset("C", 3, "SL")}), std::nullopt);
  set(0, "Start", StoredValue::integer(2022));
  set(0, "NumYears", StoredValue::real(5));
  set(2, "RecIndex", StoredValue::integer(3));
  EXPECT_THAT(
      inconsistenciesOf(company_),
      ElementsAre("In record 2, RecIndex is 3.",
                  "In the summary, Start is 2022; according to the assets it should be 2023.",
                  "In the summary, NumYears is 5; according to the assets it should be 6."));

  set(3, "DRecovery", StoredValue::text("long"));
  EXPECT_THAT(
      inconsistenciesOf(company_),
      ElementsAre("In record 2, RecIndex is 3.", "In record 3, DRecovery has the type String.",
                  "The assets cannot be summarized: Summary Error#13: Type mismatch."));

  file_->OpenTable(asset_table_name)->Item(1)->Delete();
  EXPECT_THAT(inconsistenciesOf(company_),
              ElementsAre("The table holds 3 records, but record 1 is missing.",
                          "In record 2, RecIndex is 3."));
}

}  // namespace
}  // namespace depcalc
