#include "windows/controls/grid_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "controls/looks.h"
#include "windows/controls/cell_text.h"

namespace depcalc::native {
namespace {

template <typename SizeOf>
std::vector<int> edges(int count, double zoom, SizeOf sizeOf) {
  std::vector<int> found{0};
  found.reserve(static_cast<std::size_t>(count) + 1);
  double twips = 0;
  for (int i = 0; i < count; ++i) {
    twips += sizeOf(i);
    found.push_back(static_cast<int>(std::lround(twips * zoom)));
  }
  return found;
}

int sectionAt(const std::vector<int>& edges, int position) {
  if (position < 0 || position >= edges.back()) return -1;
  return static_cast<int>(std::upper_bound(edges.begin(), edges.end(), position) - edges.begin()) -
         1;
}

constexpr std::array cell_sizes = [] {
  std::array sizes = looks::cell_parts;
  for (double& size : sizes) size *= looks::cell_points;
  return sizes;
}();

void drawLines(const Canvas& canvas, const Grid& grid, const RECT& cell, int row, int column,
               bool focused) {
  const Tones& tones = canvas.tones();
  const int line = canvas.line();
  const COLORREF lines = tones.ink(looks::grid_line);
  canvas.fill({cell.left, cell.bottom - line, cell.right, cell.bottom}, lines);
  canvas.fill({cell.right - line, cell.top, cell.right, cell.bottom}, lines);
  if (looks::isMarkedColumn(grid, column)) {
    const COLORREF mark = tones.ink(looks::accent);
    canvas.fill({cell.left, cell.top, cell.left + 2 * line, cell.bottom}, mark);
    canvas.fill({cell.right - 2 * line, cell.top, cell.right, cell.bottom}, mark);
  }
  if (focused && row == grid.row() && column == grid.column()) {
    canvas.frame(cell, {0, 2 * line, tones.ink(looks::focus_ring), std::nullopt});
  }
}

void drawCell(const Canvas& canvas, const Grid& grid, const RECT& cell, int row, int column,
              bool focused) {
  const Colour ground = looks::cellGround(grid, row, column);
  canvas.fill(cell, canvas.tones().ground(ground));
  const int margin = std::max(2, canvas.pixels(looks::cell_margin));
  drawCellText(canvas, {cell.left + margin, cell.top + 1, cell.right - margin, cell.bottom - 1},
               grid.text(row, column), grid.alignment(row, column), grid.kind(row, column),
               cell_sizes, canvas.tones().inkOn(ground, window_text));
  drawLines(canvas, grid, cell, row, column, focused);
}

bool hasCells(const Grid& grid) { return grid.rows() > 0 && grid.columns() > 0; }

}  // namespace

GridGeometry::GridGeometry(const Grid& grid, const Zoom& zoom)
    : across_(edges(grid.columns(), zoom.x, [&](int column) { return grid.columnWidth(column); })),
      down_(edges(grid.rows(), zoom.y, [&](int row) { return grid.rowHeight(row); })) {}

RECT GridGeometry::cell(int row, int column) const {
  const auto r = static_cast<std::size_t>(row);
  const auto c = static_cast<std::size_t>(column);
  return {across_[c], down_[r], across_[c + 1], down_[r + 1]};
}

int GridGeometry::rowAt(int y) const { return sectionAt(down_, y); }
int GridGeometry::columnAt(int x) const { return sectionAt(across_, x); }

void drawGridGround(const Canvas& canvas, const Grid& grid, const RECT& area) {
  const Colour ground = hasCells(grid) ? looks::groundBehind(grid) : grid.backColour();
  canvas.fill(area, canvas.tones().ground(ground));
}

void drawGridFrame(const Canvas& canvas, const GridGeometry& geometry, const RECT& area,
                   POINT corner) {
  RECT frame = area;
  if (geometry.width() > 0 && geometry.height() > 0) {
    frame.right = std::min<LONG>(area.right, corner.x + geometry.width());
    frame.bottom = std::min<LONG>(area.bottom, corner.y + geometry.height());
  }
  canvas.frame(frame, {0, canvas.line(), canvas.tones().ink(looks::grid_line), std::nullopt});
}

void drawCells(const Canvas& canvas, const Grid& grid, const GridGeometry& geometry,
               const RECT& part, POINT corner, bool focused) {
  const auto last = [](int at, int count) { return at < 0 ? count - 1 : at; };
  const int bottom = last(geometry.rowAt(part.bottom - 1), geometry.rows());
  const int right = last(geometry.columnAt(part.right - 1), geometry.columns());
  for (int row = std::max(0, geometry.rowAt(part.top)); row <= bottom; ++row) {
    for (int column = std::max(0, geometry.columnAt(part.left)); column <= right; ++column) {
      RECT cell = geometry.cell(row, column);
      if (IsRectEmpty(&cell) != FALSE) continue;
      OffsetRect(&cell, corner.x, corner.y);
      drawCell(canvas, grid, cell, row, column, focused);
    }
  }
}

}  // namespace depcalc::native
