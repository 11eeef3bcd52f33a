#include "register/print_pages.h"

#include "values/rounding.h"
#include "values/runtime_error.h"

namespace depcalc {
namespace {

int columnsThatFit(const Grid& grid, int room) {
  int width = grid.columnWidth(0);
  int fitting = 0;
  while (width <= room && fitting + 1 != grid.columns()) {
    width += grid.columnWidth(fitting + 1);
    if (width > room) break;
    ++fitting;
  }
  return fitting;
}

int rowsThatFit(int row_height, int room) {
  if (room < 0) return 0;
  if (row_height == 0) throw RuntimeError::overflow();  // they would never fill the page
  return room / row_height;
}

int pagesAcross(int columns, int on_page) {
  const int slice = on_page + 1;
  const int pages = toLong32HalfEven(divide(columns, slice));
  const int dealt = columns + pages - 1;
  return divide(dealt, slice) >= pages && dealt % slice > 0 ? pages + 1 : pages;
}

int pagesDown(int rows, int on_page) {
  const int pages = toLong32HalfEven(divide(rows, on_page + 1));
  return divide(rows, on_page) >= pages && rows % on_page >= 1 ? pages + 1 : pages;
}

}  // namespace

int measureScheduleHeading(Printer& printer) {
  constexpr double points = 12;
  printer.setFontSize(points);
  return 3 * printer.textHeight(schedule_heading);
}

PageRoom pageRoomBelow(int heading_height, Printer& printer) {
  return {printer.printableWidth(), printer.printableHeight() - heading_height};
}

PageRoom turnedPageRoomBelow(int heading_height, Printer& printer) {
  return {printer.printableHeight(), printer.printableWidth() - heading_height};
}

PrintPages PrintPages::of(const Grid& grid, PageRoom room) {
  PrintPages pages;
  pages.columns = columnsThatFit(grid, room.width);
  pages.rows = rowsThatFit(grid.rowHeight(0), room.height);
  pages.across = pagesAcross(grid.columns(), pages.columns);
  // A long table gives up three rows' worth of room at the foot of each page.
  if (grid.rows() >= pages.rows - 3) pages.rows -= 3;
  pages.down = pagesDown(grid.rows(), pages.rows);
  return pages;
}

int assetsOnNoPage(const Grid& register_table, PageRoom room) {
  return PrintPages::of(register_table, room).columnsLeftOut(register_table);
}

}  // namespace depcalc
