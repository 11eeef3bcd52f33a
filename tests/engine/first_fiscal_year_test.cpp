// The first fiscal year and its share of a year's depreciation.
#include "engine/first_fiscal_year.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>

#include "engine/convention.h"
#include "engine/first_year_fraction.h"
#include "tests/support/error_of.h"

namespace depcalc {
namespace {

TEST(FirstFiscalYear, EndsOnTheFirstYearEndNotBeforeTheStart) {
  const struct {
    Date placed;
    int month, day;
    const char* first;
    const char* last;
  } cases[] = {
      {Date::strict(2023, 7, 1), 12, 31, "01/01/2023", "12/31/2023"},
      {Date::strict(2023, 12, 31), 12, 31, "01/01/2023", "12/31/2023"},
      {Date::strict(2024, 1, 1), 12, 31, "01/01/2024", "12/31/2024"},
      {Date::strict(2001, 11, 15), 9, 30, "10/01/2001", "09/30/2002"},
      {Date::strict(2001, 9, 30), 9, 30, "10/01/2000", "09/30/2001"},
      {Date::strict(2015, 1, 28), 6, 30, "07/01/2014", "06/30/2015"},
      // 29 February ends a common year on 1 March …
      {Date::strict(2023, 1, 15), 2, 29, "03/02/2022", "03/01/2023"},
      {Date::strict(2023, 3, 1), 2, 29, "03/02/2022", "03/01/2023"},
      // … and a year later stays the day it had become.
      {Date::strict(2023, 3, 2), 2, 29, "03/02/2023", "03/01/2024"},
      {Date::strict(2024, 2, 29), 2, 29, "03/02/2023", "02/29/2024"},
      {Date::strict(2024, 3, 1), 2, 29, "02/29/2024", "02/28/2025"},
  };
  for (const auto& c : cases) {
    const Date end = firstFiscalYearEnd(c.placed, Date::carrying(2024, c.month, c.day));
    EXPECT_EQ(end.toText(), c.last) << c.placed.toText();
    EXPECT_EQ(firstFiscalYearStart(end).toText(), c.first) << c.placed.toText();
  }
}

TEST(FirstYearFraction, FollowsTheConvention) {
  const Date december = Date::strict(2023, 12, 31);
  const struct {
    std::int32_t convention;
    Date placed, year_end;
    double fraction;
  } cases[] = {
      {cdepfullyear, Date::strict(2023, 12, 31), december, 1},
      {cdepHalfYear, Date::strict(2023, 1, 1), december, 0.5},
      {cdepFullMonth, Date::strict(2023, 3, 15), december, 10.0 / 12},
      {cdepHalfMonth, Date::strict(2023, 3, 15), december, 10.0 / 12},
      {cdepHalfMonth, Date::strict(2023, 3, 16), december, 9.0 / 12},
      {cdepFullMonth, Date::strict(2023, 3, 31), december, 10.0 / 12},
      {cdepFullMonth, Date::strict(2023, 1, 20), december, 1},
      // 15, 45 and 75 days are half a month off: to the even one.
      {cdepFullMonth, Date::strict(2023, 12, 9), Date::strict(2023, 12, 16), 0},
      {cdepFullMonth, Date::strict(2023, 11, 9), Date::strict(2023, 12, 16), 2.0 / 12},
      {cdepHalfMonth, Date::strict(2023, 10, 9), Date::strict(2023, 12, 15), 2.0 / 12},
      {cdepHalfMonth, Date::strict(2023, 12, 16), december, 0},
      {cdepHalfMonth, Date::strict(2023, 12, 15), december, 1.0 / 12},
      {cdepActualDays, Date::strict(2023, 7, 1), december, 184.0 / 365},
      {cdepActualDays, Date::strict(2024, 7, 1), december, 184.0 / 366},
      {cdepActualDays, Date::strict(2023, 12, 31), december, 1.0 / 365},
      {cdepActualDays, Date::strict(2024, 12, 31), december, 1.0 / 366},
      {cdepActualDays, Date::strict(2023, 3, 1), Date::strict(2023, 2, 28), 1},
      {cdepActualDays, Date::strict(2024, 2, 29), Date::strict(2023, 2, 28), 365.0 / 365},
      {cdepActualDays, Date::strict(2024, 2, 29), Date::strict(2024, 2, 29), 1.0 / 366},
      {cdepActualDays, Date::strict(2023, 3, 1), Date::strict(2024, 2, 29), 1.0 / 365},
      {cdepActualDays, Date::strict(2023, 3, 2), Date::strict(2024, 2, 29), 1},
      // The calendar's first year, which has no year before it.
      {cdepActualDays, Date::strict(100, 7, 1), december, 184.0 / 365},
      {5, Date::strict(2023, 7, 1), december, 0},
      {-1, Date::strict(2023, 7, 1), december, 0},
      // A year that ends before its 16th can come out below nothing; nothing raises it.
      {cdepHalfMonth, Date::strict(2023, 12, 16), Date::strict(2023, 12, 16), -1.0 / 12},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(firstFiscalYearOf(c.convention, c.placed, c.year_end).fraction, c.fraction)
        << c.convention << " " << c.placed.toText();
  }
}

TEST(FirstYearFraction, HalfMonthInDecemberRollsIntoJanuary) {
  const auto year =
      firstFiscalYearOf(cdepHalfMonth, Date::strict(2023, 12, 20), Date::strict(2023, 6, 30));
  EXPECT_EQ(year.depreciation_start.toText(), "01/01/2024");
  EXPECT_EQ(year.fraction, 6.0 / 12);
}

TEST(FirstYearFraction, HalfYearCountsFromHalfwayThoughNothingReadsIt) {
  EXPECT_EQ(firstFiscalYearOf(cdepHalfYear, Date::strict(2023, 2, 1), Date::strict(2023, 12, 31))
                .depreciation_start.toText(),
            "07/01/2023");  // 5.5 months round to 6
}

// A second formulation, slow and obvious: walk day by day.

using std::chrono::sys_days;
using std::chrono::year_month_day;

bool isYearEnd(year_month_day day, int month, int day_of_month) {
  const bool last_of_common_february = month == 2 && day_of_month == 29 && !day.year().is_leap();
  if (last_of_common_february) return day.month() == std::chrono::March && unsigned(day.day()) == 1;
  return unsigned(day.month()) == unsigned(month) && unsigned(day.day()) == unsigned(day_of_month);
}

struct SlowYear {
  sys_days end;
  int days_left = 0;      ///< from the start to the end, both counted
  bool leap_day = false;  ///< within the fiscal year that ends here
};

SlowYear walk(sys_days start, int month, int day_of_month) {
  SlowYear year;
  for (sys_days day = start;; day += std::chrono::days{1}) {
    ++year.days_left;
    if (!isYearEnd(year_month_day{day}, month, day_of_month)) continue;
    year.end = day;
    break;
  }
  // Back to the day after the year end before.
  for (sys_days day = year.end;; day -= std::chrono::days{1}) {
    const year_month_day date{day};
    if (day != year.end && isYearEnd(date, month, day_of_month)) break;
    year.leap_day |= date.month() == std::chrono::February && unsigned(date.day()) == 29;
  }
  return year;
}

Date asDate(sys_days day) {
  const year_month_day date{day};
  return Date::strict(int(date.year()), int(unsigned(date.month())), int(unsigned(date.day())));
}

/// Every fiscal-year end but 29 February, which the cases above pin down by hand.
TEST(FirstFiscalYear, AgreesWithWalkingDayByDayOverEightYears) {
  const sys_days first{std::chrono::year{2019} / 1 / 1};
  const sys_days last{std::chrono::year{2026} / 12 / 31};
  for (int end_of_year = 0; end_of_year < 365; ++end_of_year) {
    const year_month_day year_end{sys_days{std::chrono::year{2023} / 1 / 1} +
                                  std::chrono::days{end_of_year}};
    const int month = int(unsigned(year_end.month()));
    const int day_of_month = int(unsigned(year_end.day()));
    // All starts for month ends, every seventh start for the others: the sweep stays a second.
    const year_month_day next_day{sys_days{year_end} + std::chrono::days{1}};
    const bool month_end = unsigned(next_day.day()) == 1;
    const int step = month_end ? 1 : 7;
    SlowYear slow;
    sys_days slow_from{};
    for (sys_days start = first; start <= last; start += std::chrono::days{step}) {
      if (slow_from == sys_days{} || start > slow.end) {
        slow = walk(start, month, day_of_month);
        slow_from = start;
      }
      const int days_left = slow.days_left - int((start - slow_from).count());
      const Date placed = asDate(start);
      const auto year =
          firstFiscalYearOf(cdepActualDays, placed, Date::strict(2023, month, day_of_month));
      ASSERT_EQ(year.end, asDate(slow.end))
          << placed.toText() << " " << month << "/" << day_of_month;
      const double days_in_year = slow.leap_day ? 366.0 : 365.0;
      ASSERT_EQ(year.fraction, std::min(1.0, days_left / days_in_year))
          << placed.toText() << " " << month << "/" << day_of_month;
    }
  }
}

/// Whole months from the month placed in service to the month in which the year ends; the rule of
/// thirty days gives the same for years that end with a month.
TEST(FirstYearFraction, OfMonthsAgreesWithCountingMonthsOverEightYears) {
  for (int month = 1; month <= 12; ++month) {
    const Date year_end = Date::carrying(2023, month + 1, 0);
    const Date stop = Date::strict(2027, 1, 1);
    for (Date placed = Date::strict(2019, 1, 1); placed < stop; placed = placed.plusDays(1)) {
      const int full = (month - placed.month() + 12) % 12 + 1;
      // The last day of February is the 29th every fourth year: a start on it opens a new year.
      if (placed.month() == 2 && placed.day() == 29 && month == 2) continue;
      ASSERT_EQ(firstFiscalYearOf(cdepFullMonth, placed, year_end).fraction, full / 12.0)
          << placed.toText() << " " << month;
      const int half = placed.day() < 16 ? full : full - 1;
      ASSERT_EQ(firstFiscalYearOf(cdepHalfMonth, placed, year_end).fraction, half / 12.0)
          << placed.toText() << " " << month;
    }
  }
}

TEST(FirstFiscalYear, IsNamedByTheYearThatItEndsIn) {
  const struct {
    const char* placed;
    int month;
    int day;
    int year;
  } cases[] = {
      {"2023-07-01", 12, 31, 2023}, {"2023-12-31", 12, 31, 2023}, {"2024-01-01", 12, 31, 2024},
      {"2001-11-15", 9, 30, 2002},  {"2001-09-30", 9, 30, 2001},  {"2001-10-01", 9, 30, 2002},
      {"2024-02-29", 2, 29, 2024},  {"2024-03-01", 2, 29, 2025},  {"2024-02-29", 2, 28, 2025},
  };
  for (const auto& c : cases) {
    const Date placed = Date::fromText(c.placed, Date());
    const Date end = Date::strict(2024, c.month, c.day);
    EXPECT_EQ(firstFiscalYear(placed, end), c.year) << c.placed;
    EXPECT_EQ(firstFiscalYearStrict(placed, end), c.year) << c.placed;
    EXPECT_EQ(firstFiscalYearEnd(placed, end).year(), c.year) << c.placed;
  }
}

TEST(FirstFiscalYear, OfALeapDayThatTheYearLacksIsCarriedOrRefused) {
  const Date leap_day = Date::strict(2024, 2, 29);
  for (const auto& [month, day, year] : {std::array{2, 28, 2023}, {3, 1, 2023}, {3, 2, 2024}}) {
    const Date placed = Date::strict(2023, month, day);
    EXPECT_EQ(firstFiscalYear(placed, leap_day), year) << month << '/' << day;
    EXPECT_EQ(errorOf([&] { firstFiscalYearStrict(placed, leap_day); }), 13) << month << '/' << day;
  }
}

TEST(FirstFiscalYear, CanBeOneBeyondTheCalendar) {
  EXPECT_EQ(firstFiscalYear(Date::strict(9999, 7, 1), Date::strict(2024, 6, 30)), 10000);
}

}  // namespace
}  // namespace depcalc
