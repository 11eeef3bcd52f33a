// How wide a table's columns are on paper, and which of them share a page.
#pragma once

#include <cstddef>
#include <vector>

#include "reports/pages/paper.h"
#include "reports/table.h"

namespace depcalc {

/// Space at either side of a cell's text, in twips.
inline constexpr double cell_margin = 70;

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

/// Twips that something needs at least, and that it would like to have.
struct PaperNeed {
  double least = 0;
  double natural = 0;
};

/// The columns of a table that people see, and how wide their cells are.
class TableColumns {
 public:
  /// Measures every cell.
  TableColumns(const Table& table, const PaperMeasures& measures);

  /// The columns in parts that are no wider than `width` (twips), which is at least some inches.
  /// Numbers and dates have the room that they need; texts get what is left and are broken. A
  /// column is in one part alone, but for those that every part has.
  [[nodiscard]] std::vector<TablePart> parts(double width) const;

 private:
  [[nodiscard]] std::vector<PaperNeed> needs(double page_width) const;

  std::vector<std::size_t> shown_;
  std::vector<PaperNeed> cells_;
  PaperNeed labels_;               ///< of the labels of sums,
  std::size_t label_columns_ = 1;  ///< which stand across so many columns in every part
  std::size_t keys_ = 1;
};

/// How many columns of `part` the label of a sum takes up.
std::size_t labelColumns(const Table& table, const TablePart& part);

}  // namespace depcalc
