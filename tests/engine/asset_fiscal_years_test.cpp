// The fiscal years of an asset.
#include "engine/asset_fiscal_years.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"

namespace depcalc {
namespace {

Date day(const char* text) { return Date::fromText(text, Date()); }

TEST(AssetFiscalYears, EndOnTheSameDayOrTheLastOfFebruary) {
  const struct {
    const char* placed;
    const char* year_end;
    int first, year;
    const char* first_day;
    const char* last_day;
  } cases[] = {
      {"2023-07-01", "2024-12-31", 2023, 2023, "2023-01-01", "2023-12-31"},
      {"2023-07-01", "2024-12-31", 2023, 2031, "2031-01-01", "2031-12-31"},
      {"2023-07-01", "2024-06-30", 2024, 2026, "2025-07-01", "2026-06-30"},
      {"2024-02-01", "2024-02-29", 2024, 2024, "2023-03-01", "2024-02-29"},
      // A leap day ends the leap years, and the 28th the others …
      {"2024-02-01", "2024-02-29", 2024, 2025, "2024-03-01", "2025-02-28"},
      {"2024-02-01", "2024-02-29", 2024, 2028, "2027-03-01", "2028-02-29"},
      // … but what began as the 28th stays, and so does a 1 March.
      {"2024-03-01", "2024-02-29", 2025, 2028, "2027-03-01", "2028-02-28"},
      {"2023-01-15", "2024-02-29", 2023, 2024, "2023-03-02", "2024-03-01"},
      {"9990-07-01", "2024-12-31", 9990, 9999, "9999-01-01", "9999-12-31"},
  };
  for (const auto& c : cases) {
    const AssetFiscalYears years(day(c.placed), day(c.year_end));
    EXPECT_EQ(years.first(), c.first) << c.placed;
    EXPECT_EQ(years.firstDay(c.year), day(c.first_day)) << c.placed << ' ' << c.year;
    EXPECT_EQ(years.lastDay(c.year), day(c.last_day)) << c.placed << ' ' << c.year;
  }
}

TEST(AssetFiscalYears, FindTheYearOfADay) {
  const struct {
    const char* placed;
    const char* year_end;
    const char* day;
    int year;
  } cases[] = {
      {"2023-07-01", "2024-12-31", "2023-07-01", 2023},
      {"2023-07-01", "2024-12-31", "2023-12-31", 2023},
      {"2023-07-01", "2024-12-31", "2024-01-01", 2024},
      {"2023-07-01", "2024-06-30", "2023-07-01", 2024},
      {"2023-07-01", "2024-06-30", "2024-06-30", 2024},
      {"2023-07-01", "2024-06-30", "2024-07-01", 2025},
      {"2023-07-01", "2024-06-30", "1999-01-01", 2024},
      {"2024-02-01", "2024-02-29", "2025-02-28", 2025},
      {"2024-02-01", "2024-02-29", "2025-03-01", 2026},
      {"2024-02-01", "2024-02-29", "2028-02-29", 2028},
      {"2024-03-01", "2024-02-29", "2028-02-29", 2029},
      {"2023-01-15", "2024-02-29", "2024-03-01", 2024},
      {"9990-07-01", "2024-06-30", "9999-12-31", 10000},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(AssetFiscalYears(day(c.placed), day(c.year_end)).of(day(c.day)), c.year)
        << c.placed << ' ' << c.year_end << ' ' << c.day;
  }
}

TEST(AssetFiscalYears, EndWithTheCalendar) {
  const AssetFiscalYears years(day("2023-07-01"), day("2024-12-31"));
  EXPECT_EQ(errorOf([&] { (void)years.lastDay(10000); }), 5);
  EXPECT_EQ(errorOf([&] { (void)AssetFiscalYears(day("9999-07-01"), day("2024-06-30")); }), 5);
}

}  // namespace
}  // namespace depcalc
