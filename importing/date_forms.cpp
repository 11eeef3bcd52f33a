#include "importing/date_forms.h"

#include <algorithm>
#include <array>
#include <vector>

#include "importing/header_words.h"
#include "values/date.h"
#include "values/text.h"

namespace depcalc {
namespace {

/// How a month's name begins, in letters without accents.
struct MonthName {
  std::string_view beginning;
  int month;
};

constexpr std::array<MonthName, 34> month_names{
    {{"jan", 1},  {"ene", 1},  {"gen", 1},  {"feb", 2},  {"fev", 2},  {"mar", 3}, {"mrz", 3},
     {"maa", 3},  {"mrt", 3},  {"apr", 4},  {"abr", 4},  {"avr", 4},  {"may", 5}, {"mai", 5},
     {"mag", 5},  {"mei", 5},  {"jun", 6},  {"juin", 6}, {"giu", 6},  {"jul", 7}, {"juil", 7},
     {"lug", 7},  {"aug", 8},  {"aou", 8},  {"ago", 8},  {"sep", 9},  {"set", 9}, {"okt", 10},
     {"oct", 10}, {"ott", 10}, {"nov", 11}, {"dec", 12}, {"dez", 12}, {"dic", 12}}};

int monthOf(std::string_view word) {
  const std::string letters = plainLetters(word);
  for (const MonthName& name : month_names) {
    if (letters.starts_with(name.beginning)) return name.month;
  }
  return 0;
}

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool partsDates(char c) {
  return c == '.' || c == '/' || c == '-' || c == ' ' || c == ',' || c == '\t';
}

struct Part {
  bool name = false;
  int value = 0;           ///< a name's month
  std::size_t digits = 0;  ///< of a number
};

struct Parts {
  std::vector<Part> parts;
  char separator = 0;  ///< the first one
};

/// "2024-03-15T10:30:00" and "15.03.2024 00:00" without the time.
std::string_view withoutTime(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return text;
  const std::size_t hours = text.find_last_of(" T", colon);
  return hours == std::string_view::npos ? text : trimmed(text.substr(0, hours));
}

/// Nothing where a part is too long, or no name of a month.
std::optional<Part> partOf(std::string_view word) {
  if (isDigit(word.front())) {
    if (word.size() > 8 || !std::all_of(word.begin(), word.end(), isDigit)) return std::nullopt;
    int value = 0;
    for (const char digit : word) value = value * 10 + (digit - '0');
    return Part{false, value, word.size()};
  }
  const int month = monthOf(word);
  return month == 0 ? std::nullopt : std::optional(Part{true, month, 0});
}

std::optional<Parts> partsOf(std::string_view text) {
  constexpr std::size_t longest = 40;
  Parts found;
  text = withoutTime(trimmed(text));
  if (text.size() > longest) return std::nullopt;
  while (!text.empty()) {
    const auto end =
        static_cast<std::size_t>(std::find_if(text.begin(), text.end(), partsDates) - text.begin());
    if (end == 0 || found.parts.size() == 3) return std::nullopt;
    const auto part = partOf(text.substr(0, end));
    if (!part) return std::nullopt;
    found.parts.push_back(*part);
    if (end < text.size() && found.separator == 0) found.separator = text[end];
    const std::size_t next = std::min(text.find_first_not_of(". ,/-\t", end), text.size());
    text.remove_prefix(next);
  }
  return found;
}

std::optional<Date> dateOf(const Part& year, int month, int day) {
  if (year.name || (year.digits != 2 && year.digits != 4)) return std::nullopt;
  if (!Date::exists(year.value, month, day)) return std::nullopt;
  return Date::strict(year.value, month, day);
}

std::optional<Date> dateWithName(const std::vector<Part>& parts) {
  const bool year_first = parts[0].digits == 4;
  const std::size_t name = parts[0].name ? 0 : 1;
  if (!parts[name].name) return std::nullopt;
  const Part& day = year_first ? parts[2] : parts[name == 0 ? 1 : 0];
  const Part& year = year_first ? parts[0] : parts[2];
  return day.name || day.digits > 2 ? std::nullopt : dateOf(year, parts[name].value, day.value);
}

std::optional<Date> dateInOrder(const std::vector<Part>& parts, DateOrder order) {
  const bool year_first = parts[0].digits == 4 || order == DateOrder::year_month_day;
  const bool month_first = order == DateOrder::month_day_year;
  const Part& year = parts[year_first ? 0 : 2];
  const Part& month = parts[year_first || !month_first ? 1 : 0];
  const Part& day = parts[year_first ? 2 : month_first ? 1 : 0];
  return month.digits > 2 || day.digits > 2 ? std::nullopt : dateOf(year, month.value, day.value);
}

std::optional<Date> readAs(const Parts& text, DateOrder order) {
  const std::vector<Part>& parts = text.parts;
  if (parts.size() == 1 && parts[0].digits == 8) {
    const int all = parts[0].value;
    return dateOf({false, all / 10'000, 4}, all / 100 % 100, all % 100);
  }
  if (parts.size() != 3) return std::nullopt;
  const bool named = std::any_of(parts.begin(), parts.end(), [](Part part) { return part.name; });
  return named ? dateWithName(parts) : dateInOrder(parts, order);
}

}  // namespace

std::optional<std::string> plainDate(std::string_view text, DateOrder order) {
  const auto parts = partsOf(text);
  const auto date = parts ? readAs(*parts, order) : std::nullopt;
  return date ? std::optional(date->toIsoText()) : std::nullopt;
}

std::optional<std::string> plainDayOfYear(std::string_view text, DateOrder order) {
  if (auto date = plainDate(text, order)) return date;
  const auto found = partsOf(text);
  if (!found || found->parts.size() != 2) return std::nullopt;
  const Part& first = found->parts[0];
  const Part& second = found->parts[1];
  if (first.name && second.name) return std::nullopt;
  const bool month_first =
      !second.name && (first.name || found->separator == '-' || order != DateOrder::day_month_year);
  constexpr Part leap_year{false, 2000, 4};
  auto day = dateOf(leap_year, month_first ? first.value : second.value,
                    month_first ? second.value : first.value);
  if (!day && !first.name && !second.name && found->separator != '-') {
    day = dateOf(leap_year, month_first ? second.value : first.value,
                 month_first ? first.value : second.value);
  }
  return day ? std::optional(day->toIsoText().substr(5)) : std::nullopt;
}

DateHint dateHint(std::string_view text) {
  const auto parts = partsOf(text);
  if (!parts) return DateHint::none;
  const auto by_month = readAs(*parts, DateOrder::month_day_year);
  const auto by_day = readAs(*parts, DateOrder::day_month_year);
  const auto by_year = readAs(*parts, DateOrder::year_month_day);
  if (by_month == by_day) return by_year && !by_day ? DateHint::year_first : DateHint::none;
  if (!by_day) return DateHint::month_first;
  // Nobody writes the month in front of a point.
  return by_month && parts->separator != '.' ? DateHint::either : DateHint::day_first;
}

}  // namespace depcalc
