#include "windows/controls/printed_grid.h"

#include <algorithm>

#include "controls/looks.h"
#include "windows/controls/cell_text.h"

namespace depcalc::native {
namespace {

using namespace looks::printed;

/// Where the lines between the cells stand, both outer edges included.
std::vector<int> edges(int start, const std::vector<int>& sizes) {
  std::vector<int> positions{start};
  for (const int size : sizes) positions.push_back(positions.back() + size);
  return positions;
}

constexpr COLORREF rgb(Colour colour) { return RGB(colour.red(), colour.green(), colour.blue()); }

class PrintedGrid {
 public:
  PrintedGrid(const Canvas& canvas, const GridPicture& picture, int x, int y)
      : canvas_(canvas),
        picture_(picture),
        across_(edges(x, picture.column_widths)),
        down_(edges(y, picture.row_heights)) {}

  void draw() const {
    forEachCell([this](const RECT& area, const GridPicture::Cell& cell) {
      if (isBold(cell.kind)) canvas_.fill(area, rgb(looks::caption));
    });
    drawLines();
    const int beside = canvas_.pixels(margin_beside);
    const int above = canvas_.pixels(margin_above);
    forEachCell([&](const RECT& area, const GridPicture::Cell& cell) {
      drawCellText(canvas_,
                   {area.left + beside, area.top + above, area.right - beside, area.bottom - above},
                   cell.text, cell.alignment, cell.kind, cell_points, RGB(0, 0, 0));
    });
  }

 private:
  [[nodiscard]] RECT area(std::size_t row, std::size_t column) const {
    return canvas_.zoom().rect({across_[column], down_[row], across_[column + 1] - across_[column],
                                down_[row + 1] - down_[row]});
  }
  template <typename Use>
  void forEachCell(Use use) const {
    for (std::size_t row = 0; row < picture_.rows.size(); ++row) {
      for (std::size_t column = 0; column < picture_.columns.size(); ++column) {
        use(area(row, column), picture_.cell(row, column));
      }
    }
  }
  void drawLines() const {
    const RECT whole =
        canvas_.zoom().rect({across_.front(), down_.front(), across_.back() - across_.front(),
                             down_.back() - down_.front()});
    const int thin = std::max(1, canvas_.pixels(inner_line));
    for (const int y : down_) {
      const LONG at = canvas_.zoom().rect({0, y, 0, 0}).top;
      canvas_.fill({whole.left, at, whole.right, at + thin}, rgb(looks::printed::line));
    }
    for (const int x : across_) {
      const LONG at = canvas_.zoom().rect({x, 0, 0, 0}).left;
      canvas_.fill({at, whole.top, at + thin, whole.bottom}, rgb(looks::printed::line));
    }
    canvas_.frame(whole,
                  {0, std::max(1, canvas_.pixels(outer_line)), rgb(looks::accent), std::nullopt});
  }

  const Canvas& canvas_;
  const GridPicture& picture_;
  std::vector<int> across_;
  std::vector<int> down_;
};

}  // namespace

void drawPrintedGrid(const Canvas& canvas, const GridPicture& picture, int x, int y) {
  if (!picture.cells.empty()) PrintedGrid(canvas, picture, x, y).draw();
}

}  // namespace depcalc::native
