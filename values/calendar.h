// Dates from their parts, compiled in place for rules that calculate many of them: one that nobody
// looks at then costs nothing. The calendar is that of std::chrono.
#pragma once

#include <algorithm>
#include <chrono>

#include "values/date.h"
#include "values/runtime_error.h"

namespace depcalc {

struct Calendar {
  static constexpr int first_year = 100;
  static constexpr int last_year = 9999;
  /// The day from which the others are counted.
  static constexpr std::chrono::sys_days day_zero{std::chrono::year{1899} / 12 / 30};

  static bool hasLeapDay(int year) { return std::chrono::year{year}.is_leap(); }
  static int lastOfMonth(int year, int month) {
    const std::chrono::year_month_day_last end{std::chrono::year{year} / month / std::chrono::last};
    return static_cast<int>(static_cast<unsigned>(end.day()));
  }

  /// Of parts that are a day of the calendar.
  static Date existing(int year, int month, int day) {
    const std::chrono::sys_days date{std::chrono::year{year} / month / day};
    return {static_cast<std::int32_t>((date - day_zero).count()), year, month, day};
  }

  /// What `Date::carrying` gives, sooner where no more than a day has to be carried.
  static Date carrying(int year, int month, int day) {
    if (year < first_year || year >= last_year || month < 1 || month > 12 || day < 1) {
      return Date::carrying(year, month, day);
    }
    if (day <= 28) return existing(year, month, day);
    const int beyond = day - lastOfMonth(year, month);
    if (beyond > 1) return Date::carrying(year, month, day);
    if (beyond < 1) return existing(year, month, day);
    return month < 12 ? existing(year, month + 1, 1) : existing(year + 1, 1, 1);
  }

  static Date firstOfMonth(Date date) { return existing(date.year(), date.month(), 1); }

  /// The same day of the month `months` later, or the last one of a shorter month.
  static Date monthsLater(Date date, int months) {
    const int count = date.year() * 12 + date.month() - 1 + months;
    const int year = count / 12;
    if (year < first_year || year > last_year) throw RuntimeError::invalidCall();
    const int month = count % 12 + 1;
    return existing(year, month, std::min(date.day(), lastOfMonth(year, month)));
  }
};

}  // namespace depcalc
