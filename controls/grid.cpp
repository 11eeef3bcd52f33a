#include "controls/grid.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "values/runtime_error.h"

namespace depcalc {
namespace {

constexpr std::array kDrawnAspects = {Aspect::structure, Aspect::cells, Aspect::scroll};

constexpr unsigned bit(Aspect aspect) { return 1U << static_cast<unsigned>(aspect); }

template <typename Lines>
auto& lineAt(Lines& lines, int number) {
  if (number < 0 || static_cast<std::size_t>(number) >= lines.size()) {
    throw RuntimeError::subscriptOutOfRange();
  }
  return lines[static_cast<std::size_t>(number)];
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
  resizeCells(checkedCount(rows), checkedCount(columns));
}

void Grid::setRows(int rows) {
  if (rows == this->rows()) return;
  resizeCells(checkedCount(rows), column_lines_.size());
  announce(Aspect::structure);
}

void Grid::setColumns(int columns) {
  if (columns == this->columns()) return;
  resizeCells(row_lines_.size(), checkedCount(columns));
  announce(Aspect::structure);
}

void Grid::resizeCells(std::size_t rows, std::size_t columns) {
  const std::size_t old_rows = row_lines_.size();
  column_lines_.resize(columns, Line{kDefaultColumnWidth});
  row_lines_.resize(rows, Line{std::max(kDefaultRowHeight, minimum_row_height_)});
  if (rows == old_rows) {
    texts_.resize(rows * columns);
    styles_.resize(rows * columns, static_cast<std::uint8_t>(CellAlignment::leftCenter));
  } else {
    std::vector<std::string> texts(rows * columns);
    std::vector<std::uint8_t> styles(rows * columns);
    for (std::size_t column = 0; column < columns; ++column) {
      for (std::size_t row = 0; row < rows; ++row) {
        const std::size_t old_cell = column * old_rows + row;
        const bool kept = row < old_rows && old_cell < texts_.size();
        const std::size_t cell = column * rows + row;
        styles[cell] =
            kept ? styles_[old_cell] : static_cast<std::uint8_t>(column_lines_[column].alignment);
        if (kept) texts[cell] = std::move(texts_[old_cell]);
      }
    }
    texts_ = std::move(texts);
    styles_ = std::move(styles);
  }
  clampCurrent();
}

void Grid::clampCurrent() {
  const auto clamp = [](int number, int count) {
    return std::clamp(number, 0, std::max(0, count - 1));
  };
  const std::pair current(row_, column_);
  row_ = clamp(row_, rows());
  column_ = clamp(column_, columns());
  top_row_ = clamp(top_row_, rows());
  left_column_ = clamp(left_column_, columns());
  if (current != std::pair(row_, column_)) changed(Aspect::current);
}

std::size_t Grid::cellAt(int row, int column) const {
  static_cast<void>(rowLine(row));
  static_cast<void>(columnLine(column));
  return static_cast<std::size_t>(column) * row_lines_.size() + static_cast<std::size_t>(row);
}

Grid::Line& Grid::rowLine(int row) { return lineAt(row_lines_, row); }
const Grid::Line& Grid::rowLine(int row) const { return lineAt(row_lines_, row); }
Grid::Line& Grid::columnLine(int column) { return lineAt(column_lines_, column); }
const Grid::Line& Grid::columnLine(int column) const { return lineAt(column_lines_, column); }

const std::string& Grid::text(int row, int column) const { return texts_[cellAt(row, column)]; }

void Grid::setText(int row, int column, std::string_view text) {
  std::string& cell = texts_[cellAt(row, column)];
  if (cell == text) return;
  cell.assign(text);
  announce(Aspect::cells);
}

CellAlignment Grid::alignment(int row, int column) const {
  return static_cast<CellAlignment>(styles_[cellAt(row, column)] & ~kBoldBit);
}

void Grid::setAlignment(int row, int column, CellAlignment alignment) {
  std::uint8_t& style = styles_[cellAt(row, column)];
  style = static_cast<std::uint8_t>((style & kBoldBit) | static_cast<std::uint8_t>(alignment));
  announce(Aspect::cells);
}

void Grid::setColumnAlignment(int column, CellAlignment alignment) {
  columnLine(column).alignment = alignment;
  for (int row = 0; row < rows(); ++row) setAlignment(row, column, alignment);
}

bool Grid::bold(int row, int column) const {
  return (styles_[cellAt(row, column)] & kBoldBit) != 0;
}

void Grid::setBold(int row, int column, bool bold) {
  std::uint8_t& style = styles_[cellAt(row, column)];
  style = static_cast<std::uint8_t>(bold ? style | kBoldBit : style & ~kBoldBit);
  announce(Aspect::cells);
}

void Grid::setRow(int row) {
  static_cast<void>(rowLine(row));
  assign(row_, row, Aspect::current);
}

void Grid::setColumn(int column) {
  static_cast<void>(columnLine(column));
  assign(column_, column, Aspect::current);
}

int Grid::columnWidth(int column) const { return columnLine(column).size; }
int Grid::rowHeight(int row) const { return rowLine(row).size; }

void Grid::setColumnWidth(int column, int width) {
  if (width < 0) throw RuntimeError::invalidCall();
  if (std::exchange(columnLine(column).size, width) != width) announce(Aspect::structure);
}

void Grid::setRowHeight(int row, int height) {
  if (height < 0) throw RuntimeError::invalidCall();
  const int effective = height == 0 ? 0 : std::max(height, minimum_row_height_);
  if (std::exchange(rowLine(row).size, effective) != effective) announce(Aspect::structure);
}

void Grid::setMinimumRowHeight(int height) {
  if (height < 0) throw RuntimeError::invalidCall();
  minimum_row_height_ = height;
  for (int row = 0; row < rows(); ++row) setRowHeight(row, rowHeight(row));
}

std::int32_t Grid::rowData(int row) const { return rowLine(row).data; }
std::int32_t Grid::columnData(int column) const { return columnLine(column).data; }
void Grid::setRowData(int row, std::int32_t value) { rowLine(row).data = value; }
void Grid::setColumnData(int column, std::int32_t value) { columnLine(column).data = value; }

void Grid::setTopRow(int row) {
  static_cast<void>(rowLine(row));
  if (std::exchange(top_row_, row) != row) announce(Aspect::scroll);
}

void Grid::setLeftColumn(int column) {
  static_cast<void>(columnLine(column));
  if (std::exchange(left_column_, column) != column) announce(Aspect::scroll);
}

void Grid::setRedraw(bool on) {
  redraw_ = on;
  if (!on) return;
  const unsigned missed = std::exchange(unannounced_, 0U);
  for (const Aspect aspect : kDrawnAspects) {
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
      picture.cells.push_back({text(row, column), alignment(row, column), bold(row, column)});
    }
  }
  return picture;
}

}  // namespace depcalc
