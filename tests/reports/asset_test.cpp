// An asset's amounts as reports count them, by hand.
#include "reports/asset.h"

#include <gtest/gtest.h>

#include "reports/journal.h"
#include "reports/proof.h"
#include "reports/rollforward.h"
#include "reports/schedule.h"
#include "reports/years.h"

namespace depcalc {
namespace {

Date day(const std::string& text) { return text.empty() ? Date() : Date::fromText(text, Date()); }

std::vector<Currency> money(std::initializer_list<const char*> texts) {
  std::vector<Currency> amounts;
  for (const char* text : texts) amounts.push_back(Currency::fromText(text));
  return amounts;
}

/// 9,000 by straight line over five years from 1 July 2020, 10,000 with a salvage value of 1,000.
SavedAsset asset(const char* convention, const char* disposed,
                 const char* fiscal_year_end = "2023-12-31") {
  SavedAsset saved;
  saved.number = 1;
  saved.id = "A";
  saved.placed_in_service = day("2020-07-01");
  saved.fiscal_year_end = day(fiscal_year_end);
  saved.basis = Currency::fromText("10000");
  saved.salvage = Currency::fromText("1000");
  saved.life = 5;
  saved.convention = convention;
  saved.method = "SL";
  saved.amounts = std::string_view(convention) == "0"
                      ? money({"1800", "1800", "1800", "1800", "1800", "0"})
                      : money({"900", "1800", "1800", "1800", "1800", "900"});
  saved.disposed = day(disposed);
  return saved;
}

std::string amountsOf(const ReportAsset& asset) {
  std::string text;
  for (int year = asset.firstYear(); year <= asset.lastYear(); ++year) {
    text += (text.empty() ? "" : " ") + asset.amount(year).toText();
  }
  return text;
}

TEST(ReportAsset, TakesTheSavedAmountsUntilItsDisposal) {
  const struct {
    const char* convention;
    const char* disposed;
    int year;  ///< of the disposal, 0 for none
    const char* amounts;
  } cases[] = {
      {"0", "", 0, "1800 1800 1800 1800 1800 0"},
      {"1", "", 0, "900 1800 1800 1800 1800 900"},
      // The first year takes nothing when it is also the last, whatever the convention.
      {"0", "2020-07-01", 2020, "0"},
      {"1", "2020-12-31", 2020, "0"},
      {"4", "2020-12-31", 2020, "0"},
      // A middle year takes its share.
      {"0", "2022-12-31", 2022, "1800 1800 0"},
      {"1", "2022-01-01", 2022, "900 1800 900"},
      {"2", "2022-01-31", 2022, "900 1800 0"},
      {"2", "2022-09-30", 2022, "900 1800 1200"},
      {"3", "2022-09-15", 2022, "900 1800 1200"},
      {"3", "2022-09-16", 2022, "900 1800 1350"},
      {"3", "2022-12-31", 2022, "900 1800 1800"},
      {"4", "2022-01-01", 2022, "900 1800 0"},
      {"4", "2022-07-02", 2022, "900 1800 897.53"},            // 182 days of 365
      {"4", "2024-07-01", 2024, "900 1800 1800 1800 895.08"},  // 182 days of 366
      {"4", "2024-02-29", 2024, "900 1800 1800 1800 290.16"},  // 59 days of 366
      // In the last year the amount is for half a year: nothing more than it can be taken.
      {"1", "2025-06-30", 2025, "900 1800 1800 1800 1800 900"},
      {"2", "2025-04-10", 2025, "900 1800 1800 1800 1800 450"},
      {"2", "2025-12-10", 2025, "900 1800 1800 1800 1800 900"},
      // The last of whole years is a year like the others.
      {"0", "2024-12-31", 2024, "1800 1800 1800 1800 0"},
      // Fully taken: nothing changes.
      {"1", "2031-01-01", 2031, "900 1800 1800 1800 1800 900"},
      {"0", "2025-03-01", 2025, "1800 1800 1800 1800 1800 0"},
      // Before it was placed in service it cannot have left.
      {"1", "2020-06-30", 0, "900 1800 1800 1800 1800 900"},
  };
  for (const auto& c : cases) {
    const ReportAsset seen(asset(c.convention, c.disposed));
    EXPECT_EQ(seen.disposalYear().value_or(0), c.year) << c.convention << ' ' << c.disposed;
    EXPECT_EQ(amountsOf(seen), c.amounts) << c.convention << ' ' << c.disposed;
  }
}

TEST(ReportAsset, CountsItsOwnFiscalYears) {
  // From 1 July 2020 the fiscal year 2021 begins, and ends on 30 June.
  const ReportAsset june(asset("2", "2022-07-31", "2023-06-30"));
  EXPECT_EQ(june.firstYear(), 2021);
  EXPECT_EQ(june.disposalYear(), 2023);
  EXPECT_EQ(amountsOf(june), "900 1800 0");
  // 28 February 2023 ends a year that the leap day would end in 2024.
  const ReportAsset leap(asset("4", "2023-02-28", "2024-02-29"));
  EXPECT_EQ(leap.firstYear(), 2021);
  EXPECT_EQ(leap.disposalYear(), 2023);
  EXPECT_EQ(amountsOf(leap), "900 1800 1795.07");  // 364 days of 365
  EXPECT_EQ(ReportAsset(asset("4", "2023-03-01", "2024-02-29")).disposalYear(), 2024);
}

TEST(ReportAsset, CountsDaysByAConventionThatIsNone) {
  SavedAsset saved = asset("7", "2022-07-02");
  EXPECT_EQ(ReportAsset(saved).convention(), "Full Year");
  EXPECT_EQ(amountsOf(ReportAsset(saved)), "900 1800 897.53");
}

TEST(ReportAsset, HasAnAmountForEachYearBelowItsLifeAndOneMore) {
  const struct {
    double life;
    int first_year;
    std::size_t count;
  } cases[] = {{5, 2020, 6},  {2.5, 2020, 4}, {0.5, 2020, 2}, {0, 2020, 1},
               {-1, 2020, 0}, {5, 9998, 2},   {50, 10000, 0}, {1e300, 2020, 7980}};
  for (const auto& c : cases) {
    EXPECT_EQ(countedAmounts(c.life, c.first_year), c.count) << c.life << ' ' << c.first_year;
  }
}

TEST(ReportAsset, TakesItsUnitsUntilItsDisposal) {
  SavedAsset saved = asset("1", "");
  saved.method = "uop";
  saved.amounts = money({"0.5"});
  EXPECT_FALSE(ReportAsset(saved).isScheduled());
  saved.units = {{2019, 500}, {2020, 1000}, {2022, 3000.5}, {2024, 20000}, {2025, 10}};
  EXPECT_EQ(ReportAsset(saved).method(), "UOP");
  EXPECT_EQ(amountsOf(ReportAsset(saved)), "500 0 1500.25 0 6999.75 0");
  saved.disposed = day("2022-01-01");
  EXPECT_EQ(amountsOf(ReportAsset(saved)), "500 0 1500.25");
  saved.disposed = day("2020-12-31");
  EXPECT_EQ(amountsOf(ReportAsset(saved)), "500");
}

TEST(ReportAsset, HasNoAmountsWithoutAMethodOfTheProgram) {
  for (const char* method : {"", "XYZ", "sl", "Uop"}) {
    SavedAsset saved = asset("1", "");
    saved.method = method;
    const ReportAsset seen(saved);
    EXPECT_FALSE(seen.isScheduled()) << method;
    EXPECT_EQ(seen.method(), "") << method;
    EXPECT_EQ(seen.allAmounts(), Currency()) << method;
  }
}

TEST(ReportAsset, EndsWithTheCalendar) {
  SavedAsset saved = asset("1", "9999-12-31", "2023-06-30");
  saved.placed_in_service = day("9999-07-01");
  const ReportAsset seen(saved);
  EXPECT_EQ(seen.firstYear(), 10000);
  EXPECT_EQ(seen.allAmounts(), Currency());
  RegisterOfAssets assets;
  assets.assets.emplace_back(saved);
  EXPECT_EQ(scheduleReport(assets, 9999, Grouping::none).tables.front().rowCount(), 0U);
  EXPECT_EQ(yearsReport(assets, {9990, 9999}, Grouping::none).tables.front().rowCount(), 1U);
}

TEST(ReportAsset, GainsWhatItIsSoldForAboveItsBookValue) {
  SavedAsset saved = asset("1", "2022-01-01");
  saved.proceeds = Currency::fromText("7000");
  EXPECT_EQ(ReportAsset(saved).gain(), Currency::fromText("600"));
  saved.proceeds = {};
  EXPECT_EQ(ReportAsset(saved).gain(), Currency::fromText("-6400"));
}

TEST(RangeOfYears, IsWhatTheRegisterSpansWhereNoneIsGiven) {
  RegisterOfAssets assets;
  assets.years = CompanyYears(4);
  assets.today = day("2026-04-01");
  const auto range = [&](std::optional<int> from, std::optional<int> to) {
    const YearRange years = rangeOfYears(assets, from, to);
    return std::to_string(years.from) + '-' + std::to_string(years.to);
  };
  EXPECT_EQ(range({}, {}), "2027-2027");
  EXPECT_EQ(range(2020, {}), "2020-2027");
  EXPECT_EQ(range(2030, {}), "2030-2030");
  assets.assets.emplace_back(asset("1", ""));
  assets.start = 2020;
  assets.span = 6;
  EXPECT_EQ(range({}, {}), "2020-2026");
  EXPECT_EQ(range(2022, {}), "2022-2026");
  EXPECT_EQ(range({}, 2010), "2010-2010");
  EXPECT_EQ(range(2030, {}), "2030-2030");
  EXPECT_EQ(range(2010, 2012), "2010-2012");
}

TEST(CompanyYears, BeginWithTheirMonth) {
  const struct {
    int first_month;
    const char* day;
    int year;
    const char* first;
    const char* last;
  } cases[] = {{1, "2026-01-01", 2026, "2026-01-01", "2026-12-31"},
               {1, "2026-12-31", 2026, "2026-01-01", "2026-12-31"},
               {4, "2026-03-31", 2026, "2025-04-01", "2026-03-31"},
               {4, "2026-04-01", 2027, "2026-04-01", "2027-03-31"},
               {3, "2024-02-29", 2024, "2023-03-01", "2024-02-29"},
               {3, "2025-02-28", 2025, "2024-03-01", "2025-02-28"},
               {12, "2025-12-01", 2026, "2025-12-01", "2026-11-30"}};
  for (const auto& c : cases) {
    const CompanyYears years(c.first_month);
    EXPECT_EQ(years.of(day(c.day)), c.year) << c.day;
    EXPECT_EQ(years.firstDay(c.year), day(c.first)) << c.day;
    EXPECT_EQ(years.lastDay(c.year), day(c.last)) << c.day;
  }
}

TEST(Proof, TellsOfEveryRowAndTotalThatFails) {
  Table table({{"a", "A", ColumnKind::amount}, {"b", "B", ColumnKind::amount}});
  table.add({Currency::fromTicks(1), Currency::fromTicks(1)});
  table.add({Currency::fromTicks(1), Currency::fromTicks(2)});
  table.addGroup({"g", {0}, "g, 1 asset", {}});
  table.addTotal("Total");
  Report report{.title = "", .covers = "", .tables = {std::move(table)}};
  prove(report, "a = b",
        [](std::span<const Cell> row) { return amountIn(row, 0) == amountIn(row, 1); });
  EXPECT_EQ(report.disproofs,
            (std::vector<std::string>{"Row 2 does not satisfy: a = b",
                                      "The total does not satisfy: a = b",
                                      "The subtotals do not sum up to the total."}));
}

}  // namespace
}  // namespace depcalc
