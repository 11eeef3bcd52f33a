// A grid of texts.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "controls/grid_column.h"
#include "controls/grid_picture.h"
#include "controls/input_control.h"

namespace depcalc {

/// Rows and columns count from 0; a number outside the grid is error 9. Sizes are in twips.
/// Growing or shrinking keeps the cells that remain. Large grids are cheap: a cell costs its
/// characters and five bytes.
class Grid : public InputControl {
 public:
  static constexpr int default_column_width = 960;
  static constexpr int default_row_height = 240;

  Grid(UserControl& parent, std::string name, int rows = 2, int columns = 2);

  [[nodiscard]] int rows() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] int columns() const { return static_cast<int>(columns_.size()); }
  /// A negative count is error 5. The current cell moves to the last one that remains.
  void setRows(int rows);
  void setColumns(int columns);

  /// Valid until the grid changes.
  [[nodiscard]] std::string_view text(int row, int column) const;
  void setText(int row, int column, std::string_view text);

  [[nodiscard]] CellAlignment alignment(int row, int column) const;
  void setAlignment(int row, int column, CellAlignment alignment);
  /// Aligns every cell of the column, rows added later included.
  void setColumnAlignment(int column, CellAlignment alignment);
  [[nodiscard]] CellKind kind(int row, int column) const;
  void setKind(int row, int column, CellKind kind);
  [[nodiscard]] bool bold(int row, int column) const { return isBold(kind(row, column)); }

  /// The current cell. Moving it raises nothing; only a user's click does.
  [[nodiscard]] int row() const { return row_; }
  [[nodiscard]] int column() const { return column_; }
  void setRow(int row);
  void setColumn(int column);

  /// Size 0 takes the row or column out of the display. A row that is displayed is never lower
  /// than the minimum row height. A negative size is error 5.
  [[nodiscard]] int columnWidth(int column) const;
  [[nodiscard]] int rowHeight(int row) const;
  void setColumnWidth(int column, int width);
  void setRowHeight(int row, int height);
  [[nodiscard]] int minimumRowHeight() const { return minimum_row_height_; }
  void setMinimumRowHeight(int height);

  /// A spare number for each row and column, for its owner's use. 0 at first.
  [[nodiscard]] std::int32_t rowData(int row) const;
  [[nodiscard]] std::int32_t columnData(int column) const;
  void setRowData(int row, std::int32_t value);
  void setColumnData(int column, std::int32_t value);

  /// The first visible row and column.
  [[nodiscard]] int topRow() const { return top_row_; }
  [[nodiscard]] int leftColumn() const { return left_column_; }
  void setTopRow(int row);
  void setLeftColumn(int column);

  /// While off, observers hear nothing of cells, structure and scrolling; turning it on tells
  /// them at once of what changed meanwhile.
  [[nodiscard]] bool redraw() const { return redraw_; }
  void setRedraw(bool on);

  /// What the grid displays now, scrolled-away cells included.
  [[nodiscard]] GridPicture Picture() const;

  /// The user clicked a cell, or moved to it by keyboard; it is the current one already.
  Handler onClick;

 private:
  friend class User;

  struct Row {
    int height;
    std::int32_t data = 0;
  };

  void click() override { raise("Click", onClick); }
  [[nodiscard]] std::size_t rowAt(int row) const;
  [[nodiscard]] std::size_t columnAt(int column) const;
  void clampPositions();
  void announce(Aspect aspect);

  std::vector<Row> rows_;
  std::vector<GridColumn> columns_;
  int minimum_row_height_ = 0;
  int row_ = 0;
  int column_ = 0;
  int top_row_ = 0;
  int left_column_ = 0;
  bool redraw_ = true;
  unsigned unannounced_ = 0;  // a bit for each aspect
};

}  // namespace depcalc
