// A grid's cells as other programs take them from the clipboard.
#pragma once

#include <string>

#include "controls/grid.h"

namespace depcalc {

struct CopiedCells {
  /// For spreadsheets: rows that end in "\n", fields between tabs. Amounts have no thousands
  /// separators. What a spreadsheet would take for a formula is guarded as in CSV files, and a
  /// field with a tab, a line end or a quote stands between quotes.
  std::string text;
  /// The same fields as a table with headings, for documents and letters.
  std::string html;
};

/// Rows and columns of size 0 are not shown and not copied.
[[nodiscard]] CopiedCells wholeGrid(const Grid& grid);

/// The column that is marked, with the captions beside it; the whole grid where none is.
[[nodiscard]] CopiedCells markedColumn(const Grid& grid);

}  // namespace depcalc
