// What the Reports window decides, without a window.
#include "desktop/reports/report_desk.h"

#include "desktop/reports/pointed_amount.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace depcalc::testing {
namespace {

using desktop::ExportFormat;
using desktop::ReportDesk;
using desktop::ReportKind;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

ReportAsset assetCalled(std::int32_t number, const char* id, const char* department, int year) {
  SavedAsset saved;
  saved.number = number;
  saved.id = id;
  saved.name = "Saw";
  saved.department = department;
  saved.placed_in_service = Date::strict(year, 7, 1);
  saved.fiscal_year_end = Date::strict(year, 12, 31);
  saved.basis = Currency::fromTicks(10'000'000);
  saved.life = 2;
  saved.convention = "0";
  saved.method = "SL";
  saved.amounts = {Currency::fromTicks(5'000'000), Currency::fromTicks(5'000'000)};
  return ReportAsset(saved);
}

RegisterOfAssets twoAssets() {
  RegisterOfAssets assets;
  assets.company = "Joinery";
  assets.today = Date::strict(2024, 6, 15);
  assets.assets = {assetCalled(1, "A1", "Shop", 2023), assetCalled(2, "=A2", "Office", 2025)};
  assets.start = 2023;
  assets.span = 4;
  return assets;
}

std::shared_ptr<const RegisterOfAssets> shared(RegisterOfAssets assets) {
  return std::make_shared<const RegisterOfAssets>(std::move(assets));
}

struct Desk : ::testing::Test {
  ReportDesk desk{shared(twoAssets())};
};

TEST_F(Desk, BeginsWithTheScheduleOfThisYear) {
  EXPECT_EQ(desk.kind(), ReportKind::schedule);
  EXPECT_EQ(desk.year(), 2024);
  EXPECT_EQ(desk.report()->title, "Depreciation schedule, FY2024");
  EXPECT_THAT(desk.years(), ElementsAre(2023, 2024, 2025, 2026, 2027));
  EXPECT_THAT(desk.assetNames(), ElementsAre("1  A1  Saw", "2  =A2  Saw"));
}

TEST_F(Desk, AsksForWhatAKindNeeds) {
  struct Case {
    ReportKind kind;
    bool year, grouping, asset;
    std::size_t formats;
    const char* file;
  };
  for (const Case& c : std::vector<Case>{
           {ReportKind::schedule, true, true, false, 5, "Depreciation schedule FY2024"},
           {ReportKind::years, false, true, false, 5, "All fiscal years"},
           {ReportKind::rollforward, true, true, false, 5, "Roll-forward FY2024"},
           {ReportKind::journal, true, true, false, 6, "Journal entry FY2024"},
           {ReportKind::asset, false, false, true, 5, "Asset card 1"},
           {ReportKind::check, false, false, false, 5, "Register check"}}) {
    desk.choose(c.kind);
    EXPECT_EQ(desk.asksForYear(), c.year) << c.file;
    EXPECT_EQ(desk.asksForGrouping(), c.grouping) << c.file;
    EXPECT_EQ(desk.asksForAsset(), c.asset) << c.file;
    EXPECT_EQ(desk.formats().size(), c.formats) << c.file;
    EXPECT_EQ(desk.fileName(), c.file);
    EXPECT_FALSE(desk.lineOf(c.kind).empty());
    ASSERT_NE(desk.report(), nullptr) << c.file;
    EXPECT_FALSE(desk.report()->tables.empty());
  }
}

TEST_F(Desk, ChoicesStayWhileOthersChange) {
  desk.chooseYear(2025);
  desk.chooseGrouping(Grouping::department);
  desk.choose(ReportKind::asset);
  desk.chooseAsset(2);
  EXPECT_THAT(desk.report()->title, HasSubstr("=A2"));
  desk.choose(ReportKind::schedule);
  EXPECT_EQ(desk.report()->title, "Depreciation schedule, FY2025");
  ASSERT_EQ(desk.report()->tables[0].groups().size(), 2U);
  EXPECT_EQ(desk.report()->tables[0].groups()[0].name, "Office");
}

TEST_F(Desk, FollowsTheRegister) {
  desk.choose(ReportKind::asset);
  desk.chooseAsset(2);
  RegisterOfAssets one = twoAssets();
  one.assets.pop_back();
  desk.setRegister(shared(one));
  EXPECT_EQ(desk.asset(), 1);
  EXPECT_THAT(desk.report()->title, HasSubstr("A1"));
  one.assets.clear();
  desk.setRegister(shared(one));
  EXPECT_EQ(desk.report(), nullptr);
  EXPECT_EQ(desk.trouble(), "There is no asset to report on yet.");
  std::string trouble;
  EXPECT_EQ(desk.written(ExportFormat::csv, trouble), "");
  EXPECT_EQ(trouble, desk.trouble());
  desk.choose(ReportKind::schedule);
  EXPECT_NE(desk.report(), nullptr) << "an empty schedule is one, too";
}

TEST_F(Desk, CountsWhatThereIsToLookAt) {
  const auto line = [this] { return desk.lineOf(ReportKind::check); };
  EXPECT_THAT(line(), HasSubstr("to look at"));
  RegisterOfAssets none = twoAssets();
  none.assets.clear();
  desk.setRegister(shared(none));
  EXPECT_EQ(line(), "nothing to look at");
}

TEST_F(Desk, WritesWhatTheCommandWrites) {
  std::string trouble;
  EXPECT_THAT(desk.written(ExportFormat::csv, trouble), StartsWith("n,id,name,department,"));
  EXPECT_THAT(desk.written(ExportFormat::json, trouble), HasSubstr("\"id\":\"A1\""));
  EXPECT_THAT(desk.written(ExportFormat::html, trouble), HasSubstr("<table"));
  EXPECT_THAT(desk.written(ExportFormat::xlsx, trouble), StartsWith("PK"));
  desk.choose(ReportKind::journal);
  EXPECT_THAT(desk.written(ExportFormat::ledger, trouble), HasSubstr("Expenses:Depreciation"));
  EXPECT_EQ(trouble, "");
}

TEST_F(Desk, CopiesRowsForSpreadsheetsWithTheirGuards) {
  desk.chooseYear(2025);
  const std::string text = desk.copied().text;
  EXPECT_THAT(text, StartsWith("N\tAsset ID\tName\t"));
  EXPECT_THAT(text, HasSubstr("\n2\t'=A2\tSaw\tOffice\t2025-07-01\t1000.0000\t"));
  EXPECT_THAT(text, HasSubstr("\nTotal, "));
  EXPECT_THAT(desk.copied().html, HasSubstr("<table"));
}

TEST_F(Desk, SaysWhereAmountsAreBeyondAllBounds) {
  RegisterOfAssets assets = twoAssets();
  for (ReportAsset& asset : assets.assets) {
    SavedAsset saved = asset.saved();
    saved.basis = Currency::fromTicks(9'000'000'000'000'000'000);
    asset = ReportAsset(saved);
  }
  desk.setRegister(shared(assets));
  desk.chooseYear(2025);
  EXPECT_EQ(desk.report(), nullptr);
  EXPECT_EQ(desk.trouble(), "The amounts of this report are too large to be added up.");
}

TEST_F(Desk, KnowsTheAssetAndTheYearOfACell) {
  using Pointed = std::optional<desktop::PointedAmount>;
  const auto at = [this](std::size_t row, const char* name) {
    const Report& report = *desk.report();
    const std::vector<Column>& columns = report.tables[report.data_table].columns();
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [name](const Column& column) { return column.name == name; });
    return desktop::pointedAmount(desk, report, report.data_table, row,
                                  static_cast<std::size_t>(found - columns.begin()));
  };
  using desktop::PointedAmount;
  EXPECT_EQ(at(0, "depreciation"), Pointed(PointedAmount{1, 2024}));
  EXPECT_EQ(at(0, "name"), Pointed(PointedAmount{1, {}}));
  desk.choose(ReportKind::years);
  EXPECT_EQ(at(1, "FY2025"), Pointed(PointedAmount{2, 2025}));
  EXPECT_EQ(at(1, "total"), Pointed(PointedAmount{2, {}}));
  desk.choose(ReportKind::asset);
  desk.chooseAsset(2);
  EXPECT_EQ(at(1, "depreciation"), Pointed(PointedAmount{2, 2026}));
  desk.choose(ReportKind::rollforward);
  EXPECT_EQ(at(0, "depreciation"), Pointed()) << "of all of them";
}

}  // namespace
}  // namespace depcalc::testing
