// Calendar dates.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace depcalc {

/// A whole day from 1 January 100 to 31 December 9999, counted from day 0, 30 December 1899.
/// Day 0 doubles as "no date". A result outside the range is error 5. A date keeps its parts beside
/// its number, since the rules of depreciation ask for both again and again.
class Date {
 public:
  /// Day 0: no date.
  constexpr Date() = default;

  static Date fromDayNumber(std::int64_t days);

  /// The date of the parts, overflow carried: 29 February of a common year is 1 March, month 13
  /// is January of the next year, day 0 the last day of the month before. Years 0 to 29 mean
  /// 2000 to 2029, 30 to 99 mean 1930 to 1999.
  static Date carrying(int year, int month, int day);

  /// The date of the parts as they stand; a day that does not exist is error 13. Two-digit
  /// years as above.
  static Date strict(int year, int month, int day);

  /// True when `strict` would succeed.
  static bool exists(int year, int month, int day);

  /// A text read as a date, month first always (see date_text.cpp for what is accepted).
  /// `today` supplies the year where the text has none. Not a date: error 13.
  static Date fromText(std::string_view text, Date today);

  /// The same, empty when the text is not a date.
  static std::optional<Date> tryFromText(std::string_view text, Date today);

  /// True when `fromText` would succeed.
  static bool isDate(std::string_view text, Date today);

  [[nodiscard]] constexpr std::int32_t dayNumber() const { return days_; }
  [[nodiscard]] constexpr bool isNone() const { return days_ == 0; }
  struct Parts {
    int year;
    int month;  ///< 1 to 12
    int day;    ///< 1 to 31
  };
  [[nodiscard]] constexpr Parts parts() const { return {year(), month(), day()}; }
  [[nodiscard]] constexpr int year() const { return parts_ >> 9; }
  [[nodiscard]] constexpr int month() const { return parts_ >> 5 & 15; }
  [[nodiscard]] constexpr int day() const { return parts_ & 31; }

  [[nodiscard]] Date plusDays(std::int64_t days) const;
  /// Clamped to the month's end: 31 January plus a month is 28 or 29 February. A fractional
  /// count is rounded first, halves to even.
  [[nodiscard]] Date plusMonths(double months) const;
  [[nodiscard]] Date plusYears(double years) const;

  /// "mm/dd/yyyy".
  [[nodiscard]] std::string toText() const;
  /// "yyyy-mm-dd", the form of data files.
  [[nodiscard]] std::string toIsoText() const;
  /// The same into a caller's buffer of at least `iso_size`; returns the end of the text.
  static constexpr std::size_t iso_size = 10;
  char* writeIsoText(char* out) const;
  /// The month's name in full.
  [[nodiscard]] std::string monthName() const;

  friend constexpr bool operator==(Date a, Date b) { return a.parts_ == b.parts_; }
  friend constexpr auto operator<=>(Date a, Date b) { return a.parts_ <=> b.parts_; }

 private:
  constexpr Date(std::int32_t days, int year, int month, int day)
      : days_(days), parts_(packed(year, month, day)) {}

  friend struct Calendar;

  /// In the order of the dates.
  static constexpr std::int32_t packed(int year, int month, int day) {
    return year << 9 | month << 5 | day;
  }

  std::int32_t days_ = 0;
  std::int32_t parts_ = packed(1899, 12, 30);
};

/// `to` minus `from` in days.
constexpr std::int32_t daysBetween(Date from, Date to) { return to.dayNumber() - from.dayNumber(); }
/// Month boundaries crossed from `from` to `to`: 31 January to 1 February is 1.
constexpr int monthsBetween(Date from, Date to) {
  return (to.year() - from.year()) * 12 + to.month() - from.month();
}

}  // namespace depcalc
