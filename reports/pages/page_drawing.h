// Puts the blocks of a report onto a page.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/chart.h"
#include "reports/pages/page_flow.h"
#include "reports/pages/paper.h"
#include "reports/pages/table_columns.h"
#include "reports/table.h"

namespace depcalc {

inline constexpr double hairline = 8;  // twips

/// The lines that a cell is broken into in its column.
std::vector<std::string> cellLines(const Table& table, const PaperColumn& column, const Cell& cell,
                                   const PaperMeasures& measures);

/// Twips that the label of a sum has in `part`.
double labelRoom(const Table& table, const TablePart& part);

/// Whether blocks of this kind stand in columns.
bool isInParts(FlowKind kind);

/// A text across the page.
void drawParagraph(PaperPage& page, const PlacedBlock& placed, std::string_view text, double width,
                   const PaperMeasures& measures);

/// How many lines of text a chart across the page is high; none where `area` has no room for one.
std::optional<std::uint32_t> chartLines(PaperArea area, const PaperMeasures& measures);

void drawChart(PaperPage& page, const PlacedBlock& placed, const Chart& chart, double width,
               const PaperMeasures& measures);

/// Blocks of one part of a table. All of what it is given outlives it.
class TableDrawing {
 public:
  TableDrawing(const Table& table, const TablePart& part, double page_width,
               const PaperMeasures& measures, PaperPage& page)
      : table_(table), part_(part), page_width_(page_width), measures_(measures), page_(page) {}

  void draw(const PlacedBlock& placed) const;

 private:
  void drawCaptions(const PlacedBlock& placed) const;
  void drawGroupName(const PlacedBlock& placed) const;
  void drawRow(const PlacedBlock& placed) const;
  void drawSum(const PlacedBlock& placed, const std::string& label,
               const std::vector<Cell>& sum) const;
  void putLines(const PlacedBlock& placed, const PaperColumn& column,
                const std::vector<std::string>& lines, PaperFont font, bool right) const;
  void putBox(double y, double height, PaperTone tone) const;
  [[nodiscard]] double width() const { return part_.back().right(); }

  const Table& table_;
  const TablePart& part_;
  double page_width_;
  const PaperMeasures& measures_;
  PaperPage& page_;
};

}  // namespace depcalc
