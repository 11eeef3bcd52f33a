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

/// What a cell is, for whoever draws, reads or writes it.
enum class CellKind : std::uint8_t {
  text,     ///< as the user entered it
  value,    ///< a date, a number of years, or a name that the calculator gives
  amount,   ///< money or a rate, never broken behind a thousands separator
  total,    ///< the amount below a column that it sums up
  caption,  ///< names a row
  heading,  ///< names a column, or stands above the captions
};

/// Captions, headings and totals stand out in every view.
[[nodiscard]] constexpr bool isBold(CellKind kind) {
  return kind == CellKind::total || kind == CellKind::caption || kind == CellKind::heading;
}
[[nodiscard]] constexpr bool isAmount(CellKind kind) {
  return kind == CellKind::amount || kind == CellKind::total;
}

/// The cells of a grid whose row and column have a size, for a printer or a test to draw. `rows`
/// and `columns` are the grid's own numbers of what is shown; sizes are in twips; cells are stored
/// row by row.
struct GridPicture {
  struct Cell {
    std::string text;
    CellAlignment alignment = CellAlignment::leftCenter;
    CellKind kind = CellKind::text;

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
