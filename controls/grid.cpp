#include "controls/grid.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "values/runtime_error.h"

namespace depcalc {
namespace {

constexpr std::array drawn_aspects = {Aspect::structure, Aspect::cells, Aspect::scroll};

constexpr unsigned bit(Aspect aspect) { return 1U << static_cast<unsigned>(aspect); }

std::size_t checkedNumber(int number, std::size_t count) {
  if (number < 0 || static_cast<std::size_t>(number) >= count) {
    throw RuntimeError::subscriptOutOfRange();
  }
  return static_cast<std::size_t>(number);
}

std::size_t checkedCount(int count) {
  if (count < 0) throw RuntimeError::invalidCall();
  return static_cast<std::size_t>(count);
}

}  // namespace

int GridPicture::width() const {
  return std::accumulate(column_widths.begin(), column_widths.end(), 0);
}

int GridPicture::height() const {
  return std::accumulate(row_heights.begin(), row_heights.end(), 0);
}

Grid::Grid(UserControl& parent, std::string name, int rows, int columns)
    : InputControl(parent, ControlKind::grid, std::move(name)) {
  setRows(rows);
  setColumns(columns);
}

std::size_t Grid::rowAt(int row) const { return checkedNumber(row, rows_.size()); }
std::size_t Grid::columnAt(int column) const { return checkedNumber(column, columns_.size()); }

void Grid::setRows(int rows) {
  const std::size_t count = checkedCount(rows);
  if (count == rows_.size()) return;
  for (GridColumn& column : columns_) column.resize(count);
  rows_.resize(count, Row{std::max(default_row_height, minimum_row_height_)});
  clampPositions();
  announce(Aspect::structure);
}

void Grid::setColumns(int columns) {
  const std::size_t count = checkedCount(columns);
  if (count == columns_.size()) return;
  GridColumn added;
  added.width = default_column_width;
  added.resize(rows_.size());
  columns_.resize(count, added);
  clampPositions();
  announce(Aspect::structure);
}

void Grid::clampPositions() {
  const int last_row = std::max(0, rows() - 1);
  const int last_column = std::max(0, columns() - 1);
  top_row_ = std::min(top_row_, last_row);
  left_column_ = std::min(left_column_, last_column);
  assign(row_, std::min(row_, last_row), Aspect::current);
  assign(column_, std::min(column_, last_column), Aspect::current);
}

std::string_view Grid::text(int row, int column) const {
  return columns_[columnAt(column)].text(rowAt(row));
}

void Grid::setText(int row, int column, std::string_view text) {
  if (columns_[columnAt(column)].setText(rowAt(row), text)) announce(Aspect::cells);
}

CellAlignment Grid::alignment(int row, int column) const {
  return columns_[columnAt(column)].alignment(rowAt(row));
}

void Grid::setAlignment(int row, int column, CellAlignment alignment) {
  if (columns_[columnAt(column)].setAlignment(rowAt(row), alignment)) announce(Aspect::cells);
}

void Grid::setColumnAlignment(int column, CellAlignment alignment) {
  if (columns_[columnAt(column)].setAlignment(alignment)) announce(Aspect::cells);
}

CellKind Grid::kind(int row, int column) const {
  return columns_[columnAt(column)].kind(rowAt(row));
}

void Grid::setKind(int row, int column, CellKind kind) {
  if (columns_[columnAt(column)].setKind(rowAt(row), kind)) announce(Aspect::cells);
}

void Grid::setRow(int row) {
  static_cast<void>(rowAt(row));
  assign(row_, row, Aspect::current);
}

void Grid::setColumn(int column) {
  static_cast<void>(columnAt(column));
  assign(column_, column, Aspect::current);
}

int Grid::columnWidth(int column) const { return columns_[columnAt(column)].width; }
int Grid::rowHeight(int row) const { return rows_[rowAt(row)].height; }

void Grid::setColumnWidth(int column, int width) {
  if (width < 0) throw RuntimeError::invalidCall();
  if (std::exchange(columns_[columnAt(column)].width, width) != width) announce(Aspect::structure);
}

void Grid::setRowHeight(int row, int height) {
  if (height < 0) throw RuntimeError::invalidCall();
  const int shown = height == 0 ? 0 : std::max(height, minimum_row_height_);
  if (std::exchange(rows_[rowAt(row)].height, shown) != shown) announce(Aspect::structure);
}

void Grid::setMinimumRowHeight(int height) {
  if (height < 0) throw RuntimeError::invalidCall();
  minimum_row_height_ = height;
  for (int row = 0; row < rows(); ++row) setRowHeight(row, rowHeight(row));
}

std::int32_t Grid::rowData(int row) const { return rows_[rowAt(row)].data; }
std::int32_t Grid::columnData(int column) const { return columns_[columnAt(column)].data; }
void Grid::setRowData(int row, std::int32_t value) { rows_[rowAt(row)].data = value; }
void Grid::setColumnData(int column, std::int32_t value) {
  columns_[columnAt(column)].data = value;
}

void Grid::setTopRow(int row) {
  static_cast<void>(rowAt(row));
  if (std::exchange(top_row_, row) != row) announce(Aspect::scroll);
}

void Grid::setLeftColumn(int column) {
  static_cast<void>(columnAt(column));
  if (std::exchange(left_column_, column) != column) announce(Aspect::scroll);
}

void Grid::setRedraw(bool on) {
  redraw_ = on;
  if (!on) return;
  const unsigned missed = std::exchange(unannounced_, 0U);
  for (const Aspect aspect : drawn_aspects) {
    if ((missed & bit(aspect)) != 0) changed(aspect);
  }
}

void Grid::announce(Aspect aspect) {
  if (redraw_) {
    changed(aspect);
  } else {
    unannounced_ |= bit(aspect);
  }
}

GridPicture Grid::Picture() const {
  GridPicture picture;
  for (int row = 0; row < rows(); ++row) {
    if (rowHeight(row) == 0) continue;
    picture.rows.push_back(row);
    picture.row_heights.push_back(rowHeight(row));
  }
  for (int column = 0; column < columns(); ++column) {
    if (columnWidth(column) == 0) continue;
    picture.columns.push_back(column);
    picture.column_widths.push_back(columnWidth(column));
  }
  picture.cells.reserve(picture.rows.size() * picture.columns.size());
  for (const int row : picture.rows) {
    for (const int column : picture.columns) {
      picture.cells.push_back(
          {std::string(text(row, column)), alignment(row, column), kind(row, column)});
    }
  }
  return picture;
}

}  // namespace depcalc
