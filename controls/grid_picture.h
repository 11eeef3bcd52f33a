// What a grid displays, as a value.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace depcalc {

enum class CellAlignment : std::uint8_t {
  leftTop,
  leftCenter,
  leftBottom,
  centerTop,
  centerCenter,
  centerBottom,
  rightTop,
  rightCenter,
  rightBottom,
};

/// The cells of a grid whose row and column have a size, for a printer or a test to draw. `rows`
/// and `columns` are the grid's own numbers of what is shown; sizes are in twips; cells are stored
/// row by row.
struct GridPicture {
  struct Cell {
    std::string text;
    CellAlignment alignment = CellAlignment::leftCenter;
    bool bold = false;

    friend bool operator==(const Cell&, const Cell&) = default;
  };

  std::vector<int> rows;
  std::vector<int> columns;
  std::vector<int> row_heights;
  std::vector<int> column_widths;
  std::vector<Cell> cells;

  [[nodiscard]] const Cell& cell(std::size_t shown_row, std::size_t shown_column) const {
    return cells.at(shown_row * columns.size() + shown_column);
  }
  [[nodiscard]] int width() const;
  [[nodiscard]] int height() const;

  friend bool operator==(const GridPicture&, const GridPicture&) = default;
};

}  // namespace depcalc
