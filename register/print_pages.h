// How a grid is cut into printed pages.
#pragma once

#include <algorithm>

#include "controls/grid.h"
#include "controls/printer.h"

namespace depcalc {

/// The part of a page that a slice of the grid may fill, in twips.
struct PageRoom {
  int width = 0;
  int height = 0;  ///< below the title and the page number
};

/// What the pages of a schedule say at their top.
inline constexpr const char* schedule_heading = "Depreciation Schedule";

/// Sets the printer to the font of a schedule's title and page number, and answers the height that
/// they take from each page.
int measureScheduleHeading(Printer& printer);

/// What that leaves of a page, and of one that is turned by a quarter.
PageRoom pageRoomBelow(int heading_height, Printer& printer);
PageRoom turnedPageRoomBelow(int heading_height, Printer& printer);

/// Column 0, the captions, stands on every page; the other columns and all rows are dealt out
/// slice by slice.
///
/// The two counts of pages follow formulas of their own. That of the pages across comes out too low
/// for some wide registers, whose last assets are then not printed (50 assets on A4, for example).
/// They are kept, so that a schedule is cut as it always was.
struct PrintPages {
  int columns = 0;  ///< asset columns on a page
  int rows = 0;     ///< rows on a page, all taken to be as high as the first
  int across = 0;
  int down = 0;

  /// No room for a single row is error 11 or no page at all; a first row without height, error 6.
  static PrintPages of(const Grid& grid, PageRoom room);

  /// Whether a column or row is on the page that is the `x`th across or the `y`th down, from 1.
  [[nodiscard]] bool hasColumn(int column, int x) const {
    return column == 0 || (column > (x - 1) * columns && column <= x * columns);
  }
  [[nodiscard]] bool hasRow(int row, int y) const {
    return row >= (y - 1) * rows && row < y * rows;
  }

  /// How many of the grid's last columns are on no page.
  [[nodiscard]] int columnsLeftOut(const Grid& grid) const {
    return across <= 1 ? 0 : std::max(0, grid.columns() - 1 - across * columns);
  }
};

/// How many of the last assets of a register are on none of the pages that it is printed on. What
/// `PrintPages::of` refuses it refuses, too.
int assetsOnNoPage(const Grid& register_table, PageRoom room);

}  // namespace depcalc
