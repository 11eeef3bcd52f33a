#include "importing/workbook/sheet_reading.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "values/date.h"
#include "values/number_text.h"
#include "values/text.h"

namespace depcalc {
namespace {

std::size_t numberOf(std::string_view digits, std::size_t otherwise) {
  std::size_t number = otherwise;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

/// "C7" is in column 2.
std::size_t columnOf(std::string_view reference, std::size_t otherwise) {
  constexpr std::size_t letters = 26;
  constexpr std::size_t too_far = 100'000;
  std::size_t column = 0;
  for (const char c : reference) {
    if (c < 'A' || c > 'Z' || column > too_far) break;
    column = column * letters + static_cast<std::size_t>(c - 'A' + 1);
  }
  return column == 0 ? otherwise : column - 1;
}

/// With another number of decimals than three, which could be a group of thousands.
std::string unmistakable(std::string number) {
  const std::size_t point = number.find('.');
  if (point != std::string::npos && number.size() == point + 4) number.push_back('0');
  return number;
}

}  // namespace

bool isDateFormat(std::string_view code) {
  bool quoted = false;
  bool month = false;
  bool clock = false;
  for (std::size_t i = 0; i < code.size(); ++i) {
    const char c = code[i];
    if (c == '"') quoted = !quoted;
    if (quoted || c == '"') continue;
    if (c == '\\' || c == '_' || c == '*') ++i;
    if (c == '[') {
      const std::size_t end = std::min(code.find(']', i), code.size() - 1);
      // [h]:mm is a length of time.
      clock = clock || code.substr(i + 1, 1).find_first_of("hHmMsS") != std::string_view::npos;
      i = end;
      continue;
    }
    if (c == 'y' || c == 'Y' || c == 'd' || c == 'D') return true;
    month = month || c == 'm' || c == 'M';
    clock = clock || c == 'h' || c == 'H' || c == 's' || c == 'S';
  }
  return month && !clock;
}

std::string sheetDate(double days, bool from_1904) {
  constexpr double days_to_1904 = 1'462;
  constexpr double first_march_of_1900 = 61;
  constexpr double last = 2'958'465;
  days = std::floor(days) + (from_1904 ? days_to_1904 : 0);
  // Sheets have a day too many in 1900.
  if (days < first_march_of_1900 - 1) days += 1;
  if (!(days >= 1) || days > last) return {};
  return Date::fromDayNumber(static_cast<std::int64_t>(days)).toIsoText();
}

void SheetReading::begins(std::string_view element, const XmlAttributes& attributes) {
  if (element == "row") {
    row_ = {numberOf(attributes["r"], row_.line + 1), {}, {}};
    column_ = 0;
  } else if (element == "c") {
    beginCell(attributes);
  }
  in_value_ = element == "v" || element == "t";
}

void SheetReading::beginCell(const XmlAttributes& attributes) {
  column_ = columnOf(attributes["r"], row_.cells.size());
  type_ = attributes["t"];
  style_ = numberOf(attributes["s"], 0);
  value_.clear();
}

void SheetReading::ends(std::string_view element) {
  in_value_ = false;
  if (element == "c") endCell();
  if (element == "row") endRow();
}

void SheetReading::text(std::string_view text) {
  if (in_value_) value_.append(text);
}

std::string SheetReading::cellText() const {
  if (type_ == "s") {
    const std::size_t number = numberOf(value_, texts_.shared.size());
    return number < texts_.shared.size() ? texts_.shared[number] : "";
  }
  if (!type_.empty() && type_ != "n") return value_;
  const auto number = tryNumberFromText(value_);
  if (!number) return value_;
  const bool date = style_ < texts_.is_date.size() && texts_.is_date[style_];
  const std::string day = date ? sheetDate(*number, texts_.from_1904) : "";
  return day.empty() ? unmistakable(numberToText(*number)) : day;
}

void SheetReading::endCell() {
  if (column_ >= CsvLimits().fields) return;
  if (row_.cells.size() <= column_) row_.cells.resize(column_ + 1);
  row_.cells[column_] = cellText();
}

/// All rows are as wide as the first, which sheets leave off behind their last text.
void SheetReading::endRow() {
  const bool empty = std::all_of(row_.cells.begin(), row_.cells.end(),
                                 [](const std::string& cell) { return trimmed(cell).empty(); });
  if (empty) return;
  if (table_.rows.size() >= most_rows_) {
    ++table_.beyond;
    return;
  }
  table_.rows.push_back(row_);
}

}  // namespace depcalc
