// Where the cells of a grid lie.
#pragma once

#include <vector>

#include "controls/grid.h"
#include "windows/controls/canvas.h"

namespace depcalc::native {

/// Edges in pixels from the grid's top left corner, rounded each for itself so that errors do not
/// add up. Good for as long as the grid's structure is.
class GridGeometry {
 public:
  GridGeometry() = default;
  GridGeometry(const Grid& grid, const Zoom& zoom);

  [[nodiscard]] int rows() const { return static_cast<int>(down_.size()) - 1; }
  [[nodiscard]] int columns() const { return static_cast<int>(across_.size()) - 1; }
  [[nodiscard]] int width() const { return across_.back(); }
  [[nodiscard]] int height() const { return down_.back(); }
  [[nodiscard]] RECT cell(int row, int column) const;
  /// The row or column at a position, -1 where there is none.
  [[nodiscard]] int rowAt(int y) const;
  [[nodiscard]] int columnAt(int x) const;

 private:
  std::vector<int> across_{0};
  std::vector<int> down_{0};
};

/// Behind the cells and around them, the grid's corner at `corner`: the model leaves a little more
/// room than they take. Of a grid without cells its area is one.
void drawGridGround(const Canvas& canvas, const Grid& grid, const RECT& area);
void drawGridFrame(const Canvas& canvas, const GridGeometry& geometry, const RECT& area,
                   POINT corner);

/// Draws the cells that meet `part`, both in pixels from the grid's corner, the grid's corner at
/// `corner`. `focused`: the current cell has a ring.
void drawCells(const Canvas& canvas, const Grid& grid, const GridGeometry& geometry,
               const RECT& part, POINT corner, bool focused);

}  // namespace depcalc::native
