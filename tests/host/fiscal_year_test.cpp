#include "host/fiscal_year.h"

#include <gtest/gtest.h>

namespace depcalc {
namespace {

constexpr int first_year = 2023;
constexpr int years = 8;  // two leap days among them

bool isLeapDay(Date date) { return date.month() == 2 && date.day() == 29; }

/// Asked day by day, as it stands in the rule: the latest one that will do.
Date latestByLooking(int first_month, Date today) {
  Date day = today;
  while (day.day() != 1 || day.month() != first_month || isLeapDay(day.plusDays(-1))) {
    day = day.plusDays(-1);
  }
  return day;
}

TEST(FiscalYear, IsTheLatestWhoseEveIsNoLeapDayInEveryMonthOfEightYears) {
  const Date end = Date::strict(first_year + years, 1, 1);
  for (int month = 1; month <= 12; ++month) {
    for (Date today = Date::strict(first_year, 1, 1); today < end; today = today.plusDays(1)) {
      ASSERT_EQ(currentFiscalYearStart(month, today), latestByLooking(month, today))
          << month << " on " << today.toText();
    }
  }
}

TEST(FiscalYear, ThatBeginsInMarchEndsOnTheTwentyEighthOfFebruary) {
  struct Case {
    Date today;
    Date start;
  };
  for (const Case& each : {Case{Date::strict(2024, 2, 29), Date::strict(2023, 3, 1)},
                           Case{Date::strict(2024, 3, 1), Date::strict(2023, 3, 1)},
                           Case{Date::strict(2025, 2, 28), Date::strict(2023, 3, 1)},
                           Case{Date::strict(2025, 3, 1), Date::strict(2025, 3, 1)},
                           Case{Date::strict(2000, 12, 31), Date::strict(1999, 3, 1)}}) {
    EXPECT_EQ(currentFiscalYearStart(3, each.today), each.start) << each.today.toText();
  }
}

}  // namespace
}  // namespace depcalc
