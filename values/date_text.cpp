// Texts read as dates.
//
// Month first, always; day and month are never swapped. Accepted, with "/" or "-" between parts:
//   3/15/2020   3-15-20   3/15 (this year)   2020-03-15 (year first when it has four digits)
//   March 15, 2020   Mar 15   15-Mar-2020   15 March 2020
// and behind any of these a time of day (10:30, 10:30:59 PM, 10pm), which is dropped. Digits alone
// (0315), dots (3.15.2020) and a month's name alone are no dates.
#include <algorithm>
#include <array>
#include <optional>

#include "values/date.h"
#include "values/en_us.h"
#include "values/runtime_error.h"
#include "values/text.h"

namespace depcalc {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isBlank(char c) { return c == ' ' || c == '\t'; }

/// The number of which `text` has the digits and nothing else, or below 0.
int digitsOnly(std::string_view text) {
  int value = 0;
  for (const char c : text) {
    if (!isDigit(c)) return -1;
    value = value * 10 + (c - '0');
  }
  return value;
}

std::optional<int> smallNumber(std::string_view digits, std::size_t most_digits) {
  if (digits.empty() || digits.size() > most_digits) return std::nullopt;
  const int value = digitsOnly(digits);
  return value < 0 ? std::nullopt : std::optional(value);
}

/// "h:mm" or "h:mm:ss" by the 24-hour clock; by the 12-hour one, with AM or PM behind it, "h" too.
bool isTimeOfDay(std::string_view clock, bool twelve_hours) {
  std::array<int, 3> fields{};
  std::size_t count = 0;
  while (true) {
    const auto colon = clock.find(':');
    const auto field = smallNumber(clock.substr(0, colon), 2);
    if (!field || count == fields.size()) return false;
    fields[count++] = *field;
    if (colon == std::string_view::npos) break;
    clock.remove_prefix(colon + 1);
  }
  const bool hour_ok = twelve_hours ? fields[0] >= 1 && fields[0] <= 12 : fields[0] <= 23;
  const bool enough = count >= (twelve_hours ? 1U : 2U);
  return enough && hour_ok && fields[1] <= 59 && fields[2] <= 59;
}

/// Takes AM or PM, and the blanks before it, off the end of `text`.
bool takeHalfOfDay(std::string_view& text) {
  const auto end = text.substr(text.size() - std::min<std::size_t>(text.size(), 2));
  if (!equalIgnoringCase(end, "AM") && !equalIgnoringCase(end, "PM")) return false;
  text = trimmed(text.substr(0, text.size() - end.size()));
  return true;
}

/// `text` without the time of day at its end, if there is one behind a blank.
std::string_view withoutTime(std::string_view text) {
  if (std::none_of(text.begin(), text.end(), isBlank)) return text;
  std::string_view rest = text;
  const bool twelve_hours = takeHalfOfDay(rest);
  const auto blank = rest.find_last_of(" \t");
  if (blank == std::string_view::npos) return text;
  if (!isTimeOfDay(rest.substr(blank + 1), twelve_hours)) return text;
  return trimmed(rest.substr(0, blank));
}

struct Parts {
  std::array<std::string_view, 3> part;
  std::size_t count = 0;
  bool blanks_between = false;  ///< some parts are parted by blanks or a comma
};

/// What stands between two parts: "/", "-", blanks, or (before the last part) a comma.
bool skipSeparator(std::string_view& rest, Parts& parts) {
  if (rest.front() == '/' || rest.front() == '-') {
    rest.remove_prefix(1);
    return true;
  }
  if (rest.front() == ',') {
    if (parts.count != 2) return false;
    rest.remove_prefix(1);
  } else if (!isBlank(rest.front())) {
    // A letter next to a digit: "15Mar".
    return false;
  }
  parts.blanks_between = true;
  while (!rest.empty() && isBlank(rest.front())) rest.remove_prefix(1);
  return true;
}

std::optional<Parts> split(std::string_view text) {
  Parts parts;
  while (!text.empty()) {
    if (parts.count == parts.part.size()) return std::nullopt;
    const auto same_kind = isDigit(text.front()) ? isDigit : isLetter;
    std::size_t length = 0;
    while (length < text.size() && same_kind(text[length])) ++length;
    if (length == 0) return std::nullopt;
    parts.part[parts.count++] = text.substr(0, length);
    text.remove_prefix(length);
    if (text.empty()) return parts;
    if (!skipSeparator(text, parts)) return std::nullopt;
  }
  return std::nullopt;  // nothing at all, or a separator at the end
}

/// 1 to 12 for a month's name, in full or its first three letters.
std::optional<int> monthNumber(std::string_view name) {
  for (std::size_t i = 0; i < en_us::month_names.size(); ++i) {
    const auto full = en_us::month_names[i];
    if (equalIgnoringCase(name, full) || equalIgnoringCase(name, firstCharacters(full, 3))) {
      return static_cast<int>(i) + 1;
    }
  }
  return std::nullopt;
}

std::optional<int> yearNumber(std::string_view digits) {
  const auto year = smallNumber(digits, 4);
  // Only a year of one or two digits means a century of its own.
  if (year && digits.size() > 2 && *year < 100) return std::nullopt;
  return year;
}

std::optional<Date> existing(std::optional<int> year, std::optional<int> month,
                             std::optional<int> day) {
  if (!year || !month || !day || !Date::exists(*year, *month, *day)) return std::nullopt;
  return Date::strict(*year, *month, *day);
}

std::optional<Date> dateOfParts(const Parts& parts, Date today) {
  if (parts.count < 2) return std::nullopt;
  const auto& part = parts.part;
  const bool year_first = part[0].size() == 4 && isDigit(part[0].front());
  if (year_first && parts.count < 3) return std::nullopt;
  const auto year = year_first         ? yearNumber(part[0])
                    : parts.count == 3 ? yearNumber(part[2])
                                       : std::optional<int>(today.year());
  const auto first = part[year_first ? 1 : 0];
  const auto second = part[year_first ? 2 : 1];
  if (isLetter(first.front())) {
    return existing(year, monthNumber(first), smallNumber(second, 2));
  }
  if (isLetter(second.front())) {
    return existing(year, monthNumber(second), smallNumber(first, 2));
  }
  if (parts.blanks_between) return std::nullopt;
  return existing(year, smallNumber(first, 2), smallNumber(second, 2));
}

struct Numbers {
  int year = 0;
  int month = 0;
  int day = 0;
};

/// The short way for what data files hold: the numbers in "yyyy-mm-dd". Year 0, which no date has,
/// for every other text, a date or not, and for a year that is none (see `yearNumber`).
Numbers numbersOfDataFile(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return {};
  const int year = digitsOnly(text.substr(0, 4));
  if (year < 100) return {};
  return {year, digitsOnly(text.substr(5, 2)), digitsOnly(text.substr(8, 2))};
}

}  // namespace

std::optional<Date> Date::tryFromText(std::string_view text, Date today) {
  const Numbers numbers = numbersOfDataFile(text);
  if (numbers.year != 0 && exists(numbers.year, numbers.month, numbers.day)) {
    return strict(numbers.year, numbers.month, numbers.day);
  }
  const auto parts = split(withoutTime(trimmed(text)));
  return parts ? dateOfParts(*parts, today) : std::nullopt;
}

Date Date::fromText(std::string_view text, Date today) {
  const auto date = tryFromText(text, today);
  if (!date) throw RuntimeError::typeMismatch();
  return *date;
}

bool Date::isDate(std::string_view text, Date today) {
  return tryFromText(text, today).has_value();
}

}  // namespace depcalc
