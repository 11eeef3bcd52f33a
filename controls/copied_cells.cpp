#include "controls/copied_cells.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <vector>

#include "values/data_text.h"
#include "values/html_text.h"
#include "values/number_text.h"

namespace depcalc {
namespace {

std::string withoutSeparators(std::string_view amount) {
  std::string plain(amount);
  plain.erase(std::remove(plain.begin(), plain.end(), ','), plain.end());
  return plain;
}

/// What a user typed is guarded even where it is a number: an ID stays the text that it is.
std::string fieldOf(const Grid& grid, int row, int column) {
  const std::string_view text = grid.text(row, column);
  const CellKind kind = grid.kind(row, column);
  if (kind == CellKind::text || !isNumeric(text)) return guardedText(text);
  return isAmount(kind) ? withoutSeparators(text) : std::string(text);
}

/// The tag that a cell stands in, without its brackets.
std::string_view openingTag(CellKind kind) {
  switch (kind) {
    case CellKind::heading:
      return R"(th scope="col")";
    case CellKind::caption:
      return R"(th scope="row")";
    case CellKind::amount:
    case CellKind::total:
      return R"(td style="text-align: right")";
    default:
      return "td";
  }
}

void appendCell(std::string& html, CellKind kind, std::string_view field) {
  const std::string_view opening = openingTag(kind);
  html.append("<").append(opening).append(">");
  for (std::size_t at = 0; at != std::string_view::npos;) {
    const std::size_t end = field.find('\n', at);
    appendHtmlText(html, field.substr(at, end - at));
    at = end == std::string_view::npos ? end : end + 1;
    if (at != std::string_view::npos) html += "<br>";
  }
  html.append("</").append(opening.substr(0, 2)).append(">");
}

std::vector<int> shownColumns(const Grid& grid) {
  std::vector<int> columns(static_cast<std::size_t>(grid.columns()));
  std::iota(columns.begin(), columns.end(), 0);
  columns.erase(std::remove_if(columns.begin(), columns.end(),
                               [&](int column) { return grid.columnWidth(column) == 0; }),
                columns.end());
  return columns;
}

void appendRow(CopiedCells& copied, const Grid& grid, int row, const std::vector<int>& columns) {
  copied.html += "<tr>";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::string field = fieldOf(grid, row, columns[i]);
    if (i > 0) copied.text += '\t';
    copied.text += tabbedField(field);
    appendCell(copied.html, grid.kind(row, columns[i]), field);
  }
  copied.text += '\n';
  copied.html += "</tr>\n";
}

CopiedCells copied(const Grid& grid, const std::vector<int>& columns) {
  if (columns.empty()) return {};
  // Clipboards take HTML without a word about its letters for Latin-1.
  CopiedCells cells{"", "<meta charset=\"utf-8\"><table>\n"};
  for (int row = 0; row < grid.rows(); ++row) {
    if (grid.rowHeight(row) == 0) continue;
    const bool headings = grid.kind(row, columns.front()) == CellKind::heading;
    if (headings) cells.html += "<thead>";
    appendRow(cells, grid, row, columns);
    if (headings) cells.html += "</thead>\n";
  }
  cells.html += "</table>\n";
  return cells;
}

}  // namespace

CopiedCells wholeGrid(const Grid& grid) { return copied(grid, shownColumns(grid)); }

CopiedCells markedColumn(const Grid& grid) {
  return grid.column() > 0 ? copied(grid, {0, grid.column()}) : wholeGrid(grid);
}

}  // namespace depcalc
