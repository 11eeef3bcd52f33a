#include "importing/file_table.h"

#include <algorithm>
#include <array>
#include <map>

#include "values/text.h"

namespace depcalc {
namespace {

constexpr std::array<char, 4> separators{',', ';', '\t', '|'};
constexpr std::string_view line_ends = "\r\n";

/// The length of a first line "sep=;", which spreadsheets neither show nor write into a cell.
std::size_t separatorLine(std::string_view text) {
  const std::string_view line = text.substr(0, text.find_first_of(line_ends));
  return line.size() == 5 && equalIgnoringCase(line.substr(0, 4), "sep=") ? line.size() : 0;
}

/// How well `separator` makes a table of the first rows: the fields that most rows have, less for
/// every row that has another number.
double fitOf(std::string_view text, char separator) {
  constexpr int looked_at = 200;
  TextBytes bytes(text);
  CsvReader reader(bytes, {.separator = separator, .limits = import_limits});
  std::map<std::size_t, int> rows_of_width;
  int rows = 0;
  for (; rows < looked_at; ++rows) {
    const auto outcome = reader.next();
    if (outcome == CsvReader::Outcome::end || outcome == CsvReader::Outcome::unreadable) break;
    if (outcome == CsvReader::Outcome::record) ++rows_of_width[reader.record().size()];
  }
  double best = 0;
  for (const auto& [width, count] : rows_of_width) {
    const double share = static_cast<double>(count) / rows;
    if (width > 1) best = std::max(best, share * share * static_cast<double>(width));
  }
  return best;
}

}  // namespace

char detectedSeparator(std::string_view text) {
  if (separatorLine(text) > 0) return text[4];
  // A text without line ends is one long row.
  constexpr std::size_t looked_at = 1'048'576;
  const std::string_view beginning = text.substr(0, looked_at);
  char best = separators.front();
  double best_fit = 0;
  for (const char separator : separators) {
    const double fit = fitOf(beginning, separator);
    if (fit <= best_fit) continue;
    best = separator;
    best_fit = fit;
  }
  return best;
}

TableReading::TableReading(std::string_view text, char separator, std::size_t most_rows)
    : size_(text.size()),
      // The line's end stays behind, as an empty line of its own.
      bytes_(text.substr(separatorLine(text))),
      reader_(bytes_, {.separator = separator, .limits = import_limits}),
      most_rows_(most_rows) {}

bool TableReading::goOn(std::size_t rows, FileTable& table) {
  for (std::size_t i = 0; i < rows; ++i) {
    switch (reader_.next()) {
      case CsvReader::Outcome::end:
      case CsvReader::Outcome::unreadable:
        return false;
      case CsvReader::Outcome::problem:
        if (table.rows.size() < most_rows_) {
          table.rows.push_back({reader_.problem().place.line, {}, reader_.problem().message});
        } else {
          ++table.beyond;
        }
        break;
      case CsvReader::Outcome::record:
        keep(table);
    }
  }
  return true;
}

void TableReading::keep(FileTable& table) {
  const auto& record = reader_.record();
  const bool empty = std::all_of(record.begin(), record.end(),
                                 [](const CsvField& field) { return trimmed(field.text).empty(); });
  if (empty) return;
  if (table.rows.size() >= most_rows_) {
    ++table.beyond;
    return;
  }
  FileRow row{record.front().place.line, {}, {}};
  row.cells.reserve(record.size());
  for (const CsvField& field : record) row.cells.emplace_back(field.text);
  table.rows.push_back(std::move(row));
}

double TableReading::done() const {
  return size_ == 0 ? 1 : 1 - static_cast<double>(bytes_.left()) / static_cast<double>(size_);
}

}  // namespace depcalc
