// How wide a table's columns are on paper, and which of them share a page.
#pragma once

#include <cstddef>
#include <vector>

#include "reports/pages/paper.h"
#include "reports/table.h"

namespace depcalc {

/// Space at either side of a cell's text, in twips.
inline constexpr double cell_margin = 80;

/// A column of a table on paper.
struct PaperColumn {
  std::size_t column = 0;  ///< of the table
  double x = 0;
  double width = 0;

  [[nodiscard]] double room() const { return width - 2 * cell_margin; }
  [[nodiscard]] double right() const { return x + width; }
};

/// Columns that stand beside each other. The first ones say which asset a row is about, and every
/// part of a table has them in the same widths.
using TablePart = std::vector<PaperColumn>;

/// The columns that people see, in parts that are no wider than `width` (twips), which is at least
/// some inches. Numbers and dates have the room that they need; texts get what is left and are
/// broken. A column is in one part alone, but for those that every part has.
std::vector<TablePart> tableParts(const Table& table, double width, const PaperMeasures& measures);

/// How many columns of `part` the label of a sum takes up.
std::size_t labelColumns(const Table& table, const TablePart& part);

}  // namespace depcalc
