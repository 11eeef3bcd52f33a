// What the year of a disposal takes, and the gain.
#include "engine/disposal.h"

#include <gtest/gtest.h>

#include "engine/asset_fiscal_years.h"
#include "engine/convention.h"

namespace depcalc {
namespace {

Date day(const char* text) { return Date::fromText(text, Date()); }

Currency money(const char* text) { return Currency::fromText(text); }

TEST(Disposal, HoldsTheYearForAShareByTheConvention) {
  const char* december = "2024-12-31";
  const char* june = "2024-06-30";
  const char* leap_day = "2024-02-29";
  const struct {
    std::int32_t convention;
    const char* year_end;  // of an asset placed in service on 1 February 2020
    const char* disposed;
    double share;
  } cases[] = {
      {cdepfullyear, december, "2024-01-01", 0},
      {cdepfullyear, december, "2024-12-31", 0},
      {cdepHalfYear, december, "2024-01-01", 0.5},
      {cdepHalfYear, december, "2024-12-31", 0.5},
      {cdepFullMonth, december, "2024-01-31", 0},
      {cdepFullMonth, december, "2024-02-01", 1.0 / 12},
      {cdepFullMonth, december, "2024-08-15", 7.0 / 12},
      {cdepFullMonth, december, "2024-12-31", 11.0 / 12},
      {cdepFullMonth, june, "2023-07-31", 0},
      {cdepFullMonth, june, "2024-06-30", 11.0 / 12},
      {cdepHalfMonth, december, "2024-01-15", 0},
      {cdepHalfMonth, december, "2024-01-16", 1.0 / 12},
      {cdepHalfMonth, december, "2024-08-15", 7.0 / 12},
      {cdepHalfMonth, december, "2024-08-16", 8.0 / 12},
      {cdepHalfMonth, december, "2024-12-31", 1},
      {cdepHalfMonth, june, "2024-06-16", 1},
      {cdepActualDays, december, "2024-01-01", 0},
      {cdepActualDays, december, "2024-01-02", 1.0 / 366},
      {cdepActualDays, december, "2024-12-31", 365.0 / 366},
      {cdepActualDays, december, "2023-12-31", 364.0 / 365},
      {cdepActualDays, june, "2023-07-01", 0},
      {cdepActualDays, june, "2024-02-29", 243.0 / 366},
      {cdepActualDays, june, "2024-06-30", 365.0 / 366},
      {cdepActualDays, leap_day, "2024-02-29", 365.0 / 366},
      {cdepActualDays, leap_day, "2024-03-01", 0},
      // The count of days goes by a year that ends on the 28th every year, as the first year's does.
      {cdepActualDays, leap_day, "2025-02-28", 364.0 / 366},
      {cdepActualDays, leap_day, "2026-02-28", 364.0 / 365},
      {5, december, "2024-01-02", 1.0 / 366},
      {-1, december, "2024-01-02", 1.0 / 366},
  };
  for (const auto& c : cases) {
    const AssetFiscalYears years(day("2020-02-01"), day(c.year_end));
    const Date disposed = day(c.disposed);
    const int year = years.of(disposed);
    EXPECT_EQ(shareHeld(c.convention, years.firstDay(year), years.lastDay(year), disposed), c.share)
        << c.convention << ' ' << c.disposed;
  }
}

/// A fiscal year that does not begin with a month has thirteen of them, in part.
TEST(Disposal, HoldsTheYearForOneWholeYearAtMost) {
  const Date first = day("2023-12-16");
  const Date last = day("2024-12-15");
  EXPECT_EQ(shareHeld(cdepFullMonth, first, last, last), 1);
  EXPECT_EQ(shareHeld(cdepHalfMonth, first, day("2024-12-20"), day("2024-12-20")), 1);
  EXPECT_EQ(shareHeld(cdepActualDays, first, last, day("2023-12-01")), 0);
  EXPECT_EQ(shareHeld(cdepFullMonth, first, last, day("2023-11-30")), 0);
}

TEST(Disposal, AmountCoversAWholeYearButForWhatTheFirstLeftOver) {
  EXPECT_EQ(shareCovered(cdepHalfYear, 0.5, true), 0.5);
  EXPECT_EQ(shareCovered(cdepActualDays, 0.25, true), 0.75);
  EXPECT_EQ(shareCovered(cdepActualDays, 0.25, false), 1);
  EXPECT_EQ(shareCovered(cdepFullMonth, 1.0, true), 0);
  EXPECT_EQ(shareCovered(cdepfullyear, 1.0, true), 1);
}

TEST(Disposal, TakesTheShareOfTheYearsAmountToTheCent) {
  const struct {
    const char* amount;
    double held, covered;
    const char* taken;
  } cases[] = {
      {"1800", 0.5, 1, "900"},
      {"1800", 0, 1, "0"},
      {"1800", 1, 1, "1800"},
      {"1800", 7.0 / 12, 1, "1050"},
      {"333.33", 0.5, 1, "166.66"},  // 166.665: to the even cent
      {"333.35", 0.5, 1, "166.68"},  // 166.675
      // In the year after the last whole one the amount is for a part of it.
      {"900", 0.25, 0.5, "450"},
      {"900", 0.5, 0.5, "900"},
      {"900", 0.75, 0.5, "900"},
      {"900", 0.75, 0, "900"},
      {"900", 0.75, -0.5, "900"},
      {"900", 0, 0, "900"},
      // To the cent even where the amount has four decimals, but never beyond it.
      {"100.0049", 1, 1, "100"},
      {"100.0051", 1, 1, "100.0051"},
      {"100.0051", 0.9, 0.1, "100.0051"},
      {"100.0041", 1, 1, "100"},
      {"-1800", 0.5, 1, "-900"},
      {"-900", 0.75, 0.5, "-900"},
      {"-100.0051", 1, 1, "-100.0051"},
      {"922337203685477.58", 0.9, 1e-9, "922337203685477.58"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(amountOfDisposalYear(money(c.amount), c.held, c.covered), money(c.taken))
        << c.amount << ' ' << c.held << ' ' << c.covered;
  }
}

TEST(Disposal, GainsWhatTheProceedsExceedTheBookValueBy) {
  EXPECT_EQ(gainOnDisposal(money("4000"), money("10000"), money("7000")), money("1000"));
  EXPECT_EQ(gainOnDisposal(money("0"), money("10000"), money("7000")), money("-3000"));
  EXPECT_EQ(gainOnDisposal(money("3000"), money("10000"), money("7000")), Currency());
}

}  // namespace
}  // namespace depcalc
