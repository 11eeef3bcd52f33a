#include "values/date.h"

#include <array>

#include "values/calendar.h"
#include "values/en_us.h"
#include "values/rounding.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

constexpr std::int64_t dayNumberOf(std::chrono::year_month_day date) {
  return (std::chrono::sys_days{date} - Calendar::day_zero).count();
}

using std::chrono::year;
constexpr std::int64_t first_day = dayNumberOf(year{Calendar::first_year} / 1 / 1);
constexpr std::int64_t last_day = dayNumberOf(year{Calendar::last_year} / 12 / 31);

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
  const std::chrono::year_month_day date = Calendar::day_zero + std::chrono::days{days};
  return {static_cast<std::int32_t>(days), static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

Date Date::carrying(int year, int month, int day) {
  const std::int64_t months = std::int64_t{withCentury(year)} * 12 + month - 1;
  const std::int64_t whole_years = months >= 0 ? months / 12 : (months - 11) / 12;
  // The day is added to the first of the month; a month beyond the calendar's reach has no date.
  if (whole_years < -9999 || whole_years > 19999) throw RuntimeError::invalidCall();
  const auto first = std::chrono::year{static_cast<int>(whole_years)} /
                     static_cast<int>(months - whole_years * 12 + 1) / 1;
  return fromDayNumber(dayNumberOf(first) + day - 1);
}

Date Date::strict(int year, int month, int day) {
  const int full_year = withCentury(year);
  if (full_year < Calendar::first_year || full_year > Calendar::last_year)
    throw RuntimeError::invalidCall();
  if (!exists(full_year, month, day)) throw RuntimeError::typeMismatch();
  return Calendar::existing(full_year, month, day);
}

bool Date::exists(int year, int month, int day) {
  const int full_year = withCentury(year);
  return full_year >= Calendar::first_year && full_year <= Calendar::last_year && month >= 1 &&
         month <= 12 && day >= 1 && day <= Calendar::lastOfMonth(full_year, month);
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
  return Calendar::monthsLater(*this, static_cast<int>(whole));
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

}  // namespace depcalc
