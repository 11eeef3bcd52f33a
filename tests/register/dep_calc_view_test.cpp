// What the register's table shows.
#include "register/dep_calc_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "tests/support/register_fixture.h"
#include "tests/support/reports.h"
#include "values/display_format.h"

namespace depcalc {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::makeAsset;

constexpr int rate_row = 11;

struct Register : ::testing::Test, testing::RegisterSurroundings {
  std::vector<std::string> column(int number) const {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(table.rows()));
    for (int row = 0; row < table.rows(); ++row) texts.emplace_back(table.text(row, number));
    return texts;
  }
  std::vector<std::string> years(int number) const {
    auto texts = column(number);
    texts.erase(texts.begin(), texts.begin() + DepCalcView::first_year_row);
    return texts;
  }
  std::string shownAs(int row, CalculateDepPtr asset) {
    container.assets = {std::move(asset)};
    showView();
    return std::string(table.text(row, 1));
  }

  Reports reports;
};

Currency money(const char* text) { return Currency::fromText(text); }

CalculateDepPtr lathe() {
  auto asset = makeAsset("LAT-002");
  asset->AssetName("Lathe");
  asset->ASerial("C-4471");
  asset->ADept("Shop");
  asset->AssetBasis(money("10000"));
  asset->AssetSalvage(money("1000"));
  asset->AssetStartDate(Date::strict(2023, 7, 1));
  asset->FYEnd(Date::strict(2000, 3, 31));
  asset->DepConvention("4");
  const char* const amounts[] = {"1352.46", "1800", "1800", "1800", "1800", "447.54"};
  for (std::int16_t k = 0; k < 6; ++k) asset->DepItem(k, money(amounts[k]));
  return asset;
}

CalculateDepPtr producer(const char* method, const char* rate) {
  auto asset = makeAsset("PRD");
  asset->DepMethod(method);
  asset->DepItem(0, money(rate));
  asset->DepItem(1, money("17"));
  return asset;
}

TEST_F(Register, ShowsAnAssetFieldByFieldAndYearByYear) {
  container.assets = {lathe()};
  showView();
  EXPECT_THAT(column(0),
              ElementsAre("Asset ID", "Name", "Serial #", "Dept/Loc", "Placed-in-service Date",
                          "Basis", "Salvage Value", "Depreciation Basis", "Convention",
                          "Useful Life", "Method", "Unit of Production Rate", "FY2024", "FY2025",
                          "FY2026", "FY2027", "FY2028", "FY2029", "FY2030"));
  EXPECT_THAT(column(1),
              ElementsAre("LAT-002", "Lathe", "C-4471", "Shop", "07/01/2023", "10,000.00",
                          "1,000.00", "9,000.00", "Actual Days", "5", "SL", "", "1,352.46",
                          "1,800.00", "1,800.00", "1,800.00", "1,800.00", "447.54", ""))
      << "the last year row stays empty";
  EXPECT_THAT(reports.all(), IsEmpty());
}

TEST_F(Register, ShowsEachConventionInWordsAndWhatItDoesNotKnowAsFullYear) {
  const struct {
    const char* code;
    const char* text;
  } cases[] = {{"0", "Full Year"},  {"1", "Half Year"},   {"2", "Full Month"},
               {"3", "Half Month"}, {"4", "Actual Days"}, {"5", "Full Year"},
               {"-1", "Full Year"}, {"11", "Full Year"},  {"", "Full Year"}};
  for (const auto& [code, text] : cases) {
    auto asset = makeAsset("A");
    asset->DepConvention(code);
    EXPECT_EQ(shownAs(8, asset), text) << code;
  }
}

TEST_F(Register, ShowsFieldsInTheirFormats) {
  auto asset = makeAsset(" id ");
  asset->AssetBasis(money("1234567.895"));
  asset->AssetSalvage(money("1234568.885"));
  asset->DepRecovery(7.5);
  asset->DepMethod("xyz");
  EXPECT_EQ(shownAs(0, asset), " id ");
  EXPECT_EQ(table.text(5, 1), "1,234,567.90");
  EXPECT_EQ(table.text(6, 1), "1,234,568.88");
  EXPECT_EQ(table.text(7, 1), "-0.99");
  EXPECT_EQ(table.text(9, 1), "7.5");
  EXPECT_EQ(table.text(10, 1), "xyz");
  asset->AssetStartDate(Date());
  asset->FYEnd(Date::strict(2000, 12, 30));
  EXPECT_EQ(shownAs(4, asset), "") << "no date";
}

TEST_F(Register, ShowsARateAndNoYearsForExactlyTwoSpellingsOfUnitsOfProduction) {
  for (const char* method : {"UOP", "uop"}) {
    EXPECT_EQ(shownAs(rate_row, producer(method, "0.22966")), "0.2297") << method;
    EXPECT_EQ(table.text(10, 1), method);
    EXPECT_THAT(years(1), Each(""));
    EXPECT_EQ(shownAs(rate_row, producer(method, "0")), "") << method;
    EXPECT_THAT(years(1), Each(""));
  }
  for (const char* method : {"Uop", "UoP", "uOP", " UOP", "UOP ", "SL", "SYD", "DDB", ""}) {
    EXPECT_EQ(shownAs(rate_row, producer(method, "0.22966")), "") << method;
    EXPECT_THAT(years(1), ElementsAre("0.23", "17.00", "", "", "", "", "")) << method;
  }
}

TEST_F(Register, LeavesAYearWithoutAnAmountEmpty) {
  auto asset = makeAsset("A");
  asset->DepItem(0, money("5"));
  asset->DepItem(2, money("-3.005"));
  asset->DepItem(3, money("0.0001"));
  shownAs(0, asset);
  EXPECT_THAT(years(1), ElementsAre("5.00", "", "-3.00", "0.00", "", "", ""));
}

TEST_F(Register, EmptiesWhatTheColumnShowedBefore) {
  container.assets = {lathe()};
  showView();
  auto later = makeAsset("A");
  later->AssetStartDate(Date::strict(2020, 1, 1));
  container.assets = {later};
  showView();
  EXPECT_THAT(years(1), Each("")) << "its first fiscal year lies before the register's";
  EXPECT_EQ(table.text(rate_row, 1), "");
}

TEST_F(Register, HasOneColumnPerAssetAndThirteenRowsMoreThanYears) {
  const struct {
    double years;
    int rows;
  } cases[] = {{0, 13},   {1, 14},   {60, 73},  {0.5, 14}, {1.5, 14},
               {2.5, 16}, {3.5, 16}, {2.4, 15}, {-1, 12}};
  container.assets = {makeAsset("A"), makeAsset("B"), makeAsset("C")};
  for (const auto& [years, rows] : cases) {
    container.years = years;
    showView();
    EXPECT_EQ(table.rows(), rows) << years;
    EXPECT_EQ(table.columns(), 4);
    EXPECT_EQ(table.text(0, 3), "C");
  }
}

TEST_F(Register, SetsEveryCellsLooks) {
  container.assets = {lathe(), producer("UOP", "1")};
  for (const double span : {6.0, 9.0, 2.0}) {
    container.years = span;
    showView();
    for (int row = 0; row < table.rows(); ++row) {
      EXPECT_EQ(table.rowHeight(row), 450);
      EXPECT_TRUE(table.bold(row, 0));
      EXPECT_EQ(table.alignment(row, 0), CellAlignment::centerTop);
      for (const int column : {1, 2}) {
        EXPECT_FALSE(table.bold(row, column));
        EXPECT_EQ(table.alignment(row, column),
                  row < 4 ? CellAlignment::leftBottom : CellAlignment::centerTop);
      }
    }
  }
  EXPECT_EQ(table.columnWidth(0), 1800);
  EXPECT_EQ(table.columnWidth(1), 1200);
  EXPECT_EQ(table.columnWidth(2), 1200);
  EXPECT_EQ(table.minimumRowHeight(), 450);
}

TEST_F(Register, SaysOfEachCellWhatItIs) {
  const std::map<std::string, CellKind> kinds = {
      {"Asset ID", CellKind::text},
      {"Name", CellKind::text},
      {"Serial #", CellKind::text},
      {"Dept/Loc", CellKind::text},
      {"Placed-in-service Date", CellKind::value},
      {"Basis", CellKind::amount},
      {"Salvage Value", CellKind::amount},
      {"Depreciation Basis", CellKind::amount},
      {"Convention", CellKind::value},
      {"Useful Life", CellKind::value},
      {"Method", CellKind::value},
      {"Unit of Production Rate", CellKind::amount},
  };
  container.assets = {lathe(), producer("UOP", "1")};
  for (const double span : {6.0, 9.0, 2.0}) {
    container.years = span;
    showView();
    for (int row = 0; row < table.rows(); ++row) {
      EXPECT_EQ(table.kind(row, 0), CellKind::caption) << row;
      const std::string caption(table.text(row, 0));
      const bool is_year = caption.starts_with("FY");
      const CellKind kind = is_year ? CellKind::amount : kinds.at(caption);
      for (const int column : {1, 2}) EXPECT_EQ(table.kind(row, column), kind) << caption;
    }
  }
}

TEST_F(Register, StopsFillingAtAnAssetWhoseFiscalYearEndDoesNotExist) {
  auto leap = makeAsset("LEAP");
  leap->FYEnd(Date::strict(2024, 2, 29));
  leap->AssetStartDate(Date::strict(2024, 2, 29));
  leap->DepItem(0, money("1"));
  auto common = makeAsset("COMMON");
  common->FYEnd(Date::strict(2024, 2, 29));
  common->AssetStartDate(Date::strict(2025, 2, 28));
  common->DepItem(0, money("2"));
  container.assets = {leap, common, makeAsset("AFTER")};
  showView();
  EXPECT_THAT(years(1), ElementsAre("1.00", "", "", "", "", "", ""));
  EXPECT_EQ(table.text(0, 2), "COMMON");
  EXPECT_EQ(table.text(10, 2), "SL");
  EXPECT_THAT(years(2), Each(""));
  EXPECT_THAT(column(3), Each(""));
  EXPECT_THAT(reports.all(), ElementsAre("DepCalcView::DisplayData Error#13: Type mismatch"));
  EXPECT_TRUE(view.PrintButton.normal.visible()) << "the load goes on";
  EXPECT_TRUE(table.redraw());
}

TEST_F(Register, LeavesNothingOfAnEarlierFillBehindAnAssetItStopsAt) {
  auto second = makeAsset("SECOND");
  second->DepItem(0, money("2"));
  container.assets = {makeAsset("FIRST"), second};
  showView();
  EXPECT_EQ(years(2).front(), "2.00");
  container.assets.front()->FYEnd(Date::strict(2024, 2, 29));
  container.assets.front()->AssetStartDate(Date::strict(2023, 1, 5));
  container.start_year = 2023;
  showView();
  EXPECT_EQ(table.text(0, 1), "FIRST");
  EXPECT_EQ(table.text(12, 0), "FY2023");
  EXPECT_THAT(column(2), Each("")) << "least of all an amount under another year";
}

TEST_F(Register, StopsFillingWhereTheArrayHasNoAsset) {
  container.assets = {makeAsset("A"), nullptr, makeAsset("C")};
  showView();
  EXPECT_EQ(table.text(0, 1), "A");
  EXPECT_THAT(column(3), Each(""));
  EXPECT_THAT(reports.all(), ElementsAre("DepCalcView::DisplayData Error#91: Object variable or "
                                         "With block variable not set"));
}

TEST_F(Register, StopsFillingWhereAnAmountOverflows) {
  auto huge = makeAsset("HUGE");
  huge->AssetBasis(money("900000000000000"));
  huge->AssetSalvage(money("-900000000000000"));
  container.assets = {huge};
  showView();
  EXPECT_EQ(table.text(6, 1), "-900,000,000,000,000.00");
  EXPECT_EQ(table.text(8, 1), "");
  EXPECT_THAT(reports.all(), ElementsAre("DepCalcView::DisplayData Error#6: Overflow"));
}

// The same by counting from an asset's fiscal year instead of from the register's.
std::string amountInYear(CalculateDep& asset, int year, int start_year, double span) {
  const Date start = asset.AssetStartDate();
  const Date end =
      Date::fromText(std::to_string(asset.FYEnd().month()) + "/" +
                         std::to_string(asset.FYEnd().day()) + "/" + std::to_string(start.year()),
                     start);
  const int first = end < start ? start.year() + 1 : start.year();
  if (first < start_year || year < first || year >= start_year + span) return "";
  const Currency amount = asset.DepItem(static_cast<std::int16_t>(year - first));
  return amount == Currency() ? "" : formatMoney(amount);
}

std::vector<Date> startsAround(Date fiscal_year_end) {
  std::vector<Date> starts;
  for (int year = 2019; year <= 2025; ++year) {
    for (const int month : {1, 2, 3, 6, 7, 12}) {
      starts.push_back(Date::strict(year, month, 1));
      starts.push_back(Date::carrying(year, month + 1, 0));
    }
    const auto end = fiscal_year_end.parts();
    for (const int days : {-1, 0, 1}) {
      starts.push_back(Date::carrying(year, end.month, end.day).plusDays(days));
    }
  }
  return starts;
}

TEST_F(Register, LaysAmountsUnderTheirFiscalYears) {
  const Date year_ends[] = {Date::strict(2000, 12, 31), Date::strict(2001, 1, 1),
                            Date::strict(2000, 2, 28),  Date::strict(2003, 3, 31),
                            Date::strict(2000, 6, 15),  Date::strict(1999, 9, 30)};
  for (const Date year_end : year_ends) {
    container.assets.clear();
    for (const Date start : startsAround(year_end)) {
      for (const double life : {1.0, 2.5, 4.0, 12.0}) {
        auto asset = makeAsset("A");
        asset->FYEnd(year_end);
        asset->AssetStartDate(start);
        asset->DepRecovery(life);
        for (std::int16_t k = 0; k <= life; ++k) asset->DepItem(k, Currency::fromDouble(k + 1));
        container.assets.push_back(asset);
      }
    }
    for (const int start_year : {2017, 2020, 2023, 2040}) {
      for (const double span : {0.0, 4.0, 13.0}) {
        container.start_year = static_cast<std::int16_t>(start_year);
        container.years = span;
        showView();
        for (int column = 1; column < table.columns(); ++column) {
          CalculateDep& asset = *container.assets[static_cast<std::size_t>(column) - 1];
          for (int row = 12; row < table.rows(); ++row) {
            const int year = start_year + row - 12;
            ASSERT_EQ(table.text(row, column), amountInYear(asset, year, start_year, span))
                << "year end " << year_end.toText() << " start " << asset.AssetStartDate().toText()
                << " register " << start_year << "+" << span << " year " << year;
          }
        }
      }
    }
  }
  EXPECT_THAT(reports.all(), IsEmpty());
}

}  // namespace
}  // namespace depcalc
