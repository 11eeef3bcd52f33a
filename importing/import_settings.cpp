#include "importing/import_settings.h"

#include <algorithm>

#include "values/text.h"

namespace depcalc {
namespace {

std::size_t namedColumns(const FileRow& row) {
  const std::vector<ColumnUse> uses = usesOfHeader(row.cells);
  return static_cast<std::size_t>(std::count_if(uses.begin(), uses.end(), [](const ColumnUse& use) {
    return std::holds_alternative<AssetColumn>(use);
  }));
}

bool isNumberOrDate(const std::string& cell) {
  return plainDate(cell, DateOrder::day_month_year) || plainDate(cell, DateOrder::month_day_year) ||
         (!trimmed(cell).empty() &&
          (plainNumber(cell, DecimalSign::point) || plainNumber(cell, DecimalSign::comma)));
}

bool isDateColumn(const ColumnUse& use) {
  const auto* column = std::get_if<AssetColumn>(&use);
  return column != nullptr &&
         (*column == AssetColumn::placed_in_service || *column == AssetColumn::disposed ||
          *column == AssetColumn::fiscal_year_end);
}

bool isNumberColumn(const ColumnUse& use) {
  const auto* column = std::get_if<AssetColumn>(&use);
  if (column == nullptr) return std::holds_alternative<AmountOfYear>(use);
  return *column == AssetColumn::life || *column == AssetColumn::basis ||
         *column == AssetColumn::salvage || *column == AssetColumn::capacity ||
         *column == AssetColumn::proceeds;
}

/// How many texts say what.
struct Votes {
  std::size_t point = 0;
  std::size_t comma = 0;
  std::size_t month_first = 0;
  std::size_t day_first = 0;
  std::size_t year_first = 0;
  OpenQuestions open;  ///< the first text of each kind that can be read in two ways

  void countNumber(const std::string& text) {
    const NumberHint hint = numberHint(text);
    point += hint == NumberHint::point;
    comma += hint == NumberHint::comma;
    if (hint == NumberHint::either && open.number.empty()) open.number = text;
  }
  void countDate(const std::string& text) {
    const DateHint hint = dateHint(text);
    month_first += hint == DateHint::month_first;
    day_first += hint == DateHint::day_first;
    year_first += hint == DateHint::year_first;
    if (hint == DateHint::either && open.date.empty()) open.date = text;
  }
};

Votes votesOf(const FileTable& table, const ImportSettings& settings) {
  Votes votes;
  for (std::size_t r = settings.header_row; r < table.rows.size(); ++r) {
    const std::vector<std::string>& cells = table.rows[r].cells;
    for (std::size_t c = 0; c < std::min(cells.size(), settings.uses.size()); ++c) {
      if (isNumberColumn(settings.uses[c])) votes.countNumber(cells[c]);
      if (isDateColumn(settings.uses[c])) votes.countDate(cells[c]);
    }
  }
  return votes;
}

}  // namespace

std::size_t detectedHeaderRow(const FileTable& table) {
  constexpr std::size_t looked_at = 30;
  constexpr std::size_t enough = 2;
  const std::size_t count = std::min(looked_at, table.rows.size());
  for (std::size_t i = 0; i < count; ++i) {
    if (namedColumns(table.rows[i]) >= enough) return i + 1;
  }
  if (count == 0) return 0;
  const auto& first = table.rows.front().cells;
  return std::any_of(first.begin(), first.end(), isNumberOrDate) ? 0 : 1;
}

std::size_t widthOf(const FileTable& table, std::size_t header_row) {
  const std::size_t row = header_row == 0 ? 0 : header_row - 1;
  return row < table.rows.size() ? table.rows[row].cells.size() : 0;
}

std::vector<std::string> headerOf(const FileTable& table, std::size_t header_row) {
  std::vector<std::string> header(widthOf(table, header_row));
  for (std::size_t i = 0; i < header.size(); ++i) {
    if (header_row > 0) header[i] = trimmed(table.rows[header_row - 1].cells[i]);
    if (header[i].empty()) header[i] = "Column " + std::to_string(i + 1);
  }
  return header;
}

OpenQuestions detectForms(const FileTable& table, ImportSettings& settings) {
  Votes votes = votesOf(table, settings);
  const bool commas =
      votes.comma == votes.point ? settings.separator == ';' : votes.comma > votes.point;
  settings.decimal = commas ? DecimalSign::comma : DecimalSign::point;
  if (votes.comma + votes.point > 0) votes.open.number.clear();
  const bool decided = votes.day_first + votes.month_first + votes.year_first > 0;
  if (decided) votes.open.date.clear();
  if (votes.year_first > votes.day_first && votes.year_first > votes.month_first) {
    settings.dates = DateOrder::year_month_day;
  } else if (votes.day_first == votes.month_first) {
    settings.dates = commas ? DateOrder::day_month_year : DateOrder::month_day_year;
  } else {
    settings.dates =
        votes.day_first > votes.month_first ? DateOrder::day_month_year : DateOrder::month_day_year;
  }
  return votes.open;
}

}  // namespace depcalc
