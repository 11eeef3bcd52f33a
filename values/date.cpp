#include "values/date.h"

#include <array>
#include <chrono>

#include "values/en_us.h"
#include "values/rounding.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

using namespace std::chrono;

constexpr sys_days day_zero{year{1899} / December / 30};
constexpr std::int64_t first_day = (sys_days{year{100} / January / 1} - day_zero).count();
constexpr std::int64_t last_day = (sys_days{year{9999} / December / 31} - day_zero).count();

year_month_day calendar(Date date) { return day_zero + days{date.dayNumber()}; }

Date fromCalendar(year_month_day date) {
  return Date::fromDayNumber((sys_days{date} - day_zero).count());
}

/// The parts as a calendar date, whether or not there is such a day.
year_month_day calendarDate(int y, int m, int d) {
  return year{y} / month{static_cast<unsigned>(m)} / day{static_cast<unsigned>(d)};
}

int withCentury(int two_digits) {
  if (two_digits < 0 || two_digits > 99) return two_digits;
  return two_digits + (two_digits < 30 ? 2000 : 1900);
}

std::string padded(int value, std::size_t width) {
  std::string digits = std::to_string(value);
  return std::string(width - digits.size(), '0') + digits;
}

char* writeTwo(char* out, int number) {
  *out++ = static_cast<char>('0' + number / 10);
  *out++ = static_cast<char>('0' + number % 10);
  return out;
}

}  // namespace

Date Date::fromDayNumber(std::int64_t days) {
  if (days < first_day || days > last_day) throw RuntimeError::invalidCall();
  return Date(static_cast<std::int32_t>(days));
}

Date Date::carrying(int year, int month, int day) {
  const std::int64_t months = std::int64_t{withCentury(year)} * 12 + month - 1;
  const std::int64_t whole_years = months >= 0 ? months / 12 : (months - 11) / 12;
  // The day is added to the first of the month; a month beyond the calendar's reach has no date.
  if (whole_years < -9999 || whole_years > 19999) throw RuntimeError::invalidCall();
  const auto first = std::chrono::year{static_cast<int>(whole_years)} /
                     std::chrono::month{static_cast<unsigned>(months - whole_years * 12 + 1)} / 1;
  return fromDayNumber((sys_days{first} - day_zero).count() + day - 1);
}

Date Date::strict(int year, int month, int day) {
  const int full_year = withCentury(year);
  if (full_year < 100 || full_year > 9999) throw RuntimeError::invalidCall();
  if (!exists(full_year, month, day)) throw RuntimeError::typeMismatch();
  return fromCalendar(calendarDate(full_year, month, day));
}

bool Date::exists(int year, int month, int day) {
  const int full_year = withCentury(year);
  return full_year >= 100 && full_year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
         day <= 31 && calendarDate(full_year, month, day).ok();
}

Date::Parts Date::parts() const {
  const auto date = calendar(*this);
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

Date Date::plusDays(std::int64_t days) const {
  // A count this large leaves the calendar whatever the start; the sum must not overflow first.
  if (days > last_day - first_day || days < first_day - last_day) {
    throw RuntimeError::invalidCall();
  }
  return fromDayNumber(days_ + days);
}

Date Date::plusMonths(double months) const {
  const double whole = nearestEven(months);
  if (!(whole > -200'000.0 && whole < 200'000.0)) throw RuntimeError::invalidCall();
  const auto date = calendar(*this);
  const auto target = std::chrono::year_month{date.year(), date.month()} +
                      std::chrono::months{static_cast<int>(whole)};
  if (target.year() < std::chrono::year{100} || target.year() > std::chrono::year{9999}) {
    throw RuntimeError::invalidCall();
  }
  const auto moved = target / date.day();
  return fromCalendar(moved.ok() ? moved : year_month_day{target / last});
}

Date Date::plusYears(double years) const { return plusMonths(nearestEven(years) * 12.0); }

std::string Date::toText() const {
  const auto [year, month, day] = parts();
  return padded(month, 2) + '/' + padded(day, 2) + '/' + padded(year, 4);
}

char* Date::writeIsoText(char* out) const {
  const auto [year, month, day] = parts();
  out = writeTwo(out, year / 100);
  out = writeTwo(out, year % 100);
  *out++ = '-';
  out = writeTwo(out, month);
  *out++ = '-';
  return writeTwo(out, day);
}

std::string Date::toIsoText() const {
  std::array<char, iso_size> text;
  return {text.data(), writeIsoText(text.data())};
}

std::string Date::monthName() const {
  return std::string(en_us::month_names[static_cast<std::size_t>(month() - 1)]);
}

int monthsBetween(Date from, Date to) {
  const auto first = from.parts();
  const auto second = to.parts();
  return (second.year - first.year) * 12 + second.month - first.month;
}

}  // namespace depcalc
