// A report on pages: what stands where on each of them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/pages/page_flow.h"
#include "reports/pages/paper.h"
#include "reports/pages/table_columns.h"
#include "reports/table.h"
#include "values/date.h"

namespace depcalc {

/// Nothing is cut off or left out: every cell stands on paper once, whole, within the printable
/// area. A table that is too wide goes on beside itself on further pages, each of which has the
/// columns that say which asset a row is about; captions head every page. A group's name stays with
/// its first row and is repeated where the group goes on, sums stay with the row above. Texts are
/// broken into lines, and a row that is higher than a page goes on on the next.
///
/// Before a table is spread over pages beside each other, all is tried in smaller letters.
///
/// In the foot of every page: the title, what the report covers, the date, page x of y.
class ReportPages {
 public:
  /// Numbers from 0.
  struct TableCell {
    std::size_t table = 0;
    std::size_t row = 0;
    std::size_t column = 0;
    bool operator==(const TableCell&) const = default;
  };

  /// `report` and `measures` live as long as this does, or longer. `area` is some inches wide and
  /// high at least. `today` is the date in the foot.
  ReportPages(const Report& report, PaperArea area, const PaperMeasures& measures, Date today);
  ReportPages(const Report&&, PaperArea, const PaperMeasures&, Date) = delete;

  [[nodiscard]] std::size_t count() const { return pages_.size(); }
  /// The page `index`, from 0.
  [[nodiscard]] PaperPage page(std::size_t index) const;
  /// The cell that is drawn at a place of page `index`, in twips from the top left corner of the
  /// printable area; nothing beside the rows of tables.
  [[nodiscard]] std::optional<TableCell> cellAt(std::size_t index, double x, double y) const;

 private:
  ReportPages(const Report& report, const std::vector<TableColumns>& tables, PaperArea area,
              const PaperMeasures& measures, Date today);
  /// The pages that a table is too wide for lie beside each other.
  struct PageOf {
    std::size_t down = 0;
    std::size_t part = 0;
  };

  void layOut();
  void addTable(std::size_t index);
  void addGroup(std::size_t table, std::size_t index);
  void addRow(std::size_t table, std::size_t row, bool glued);
  void addChart();
  void addParagraphs();
  [[nodiscard]] std::size_t linesOf(FlowKind kind, std::string_view text) const;
  [[nodiscard]] std::size_t captionLines(std::size_t table) const;
  [[nodiscard]] std::size_t nameLines(const std::string& name) const;
  [[nodiscard]] std::size_t sumLines(std::size_t table, const std::string& label) const;
  [[nodiscard]] std::string_view textOf(const FlowBlock& block) const;
  [[nodiscard]] static double footHeight(const PaperMeasures& measures);
  void drawFoot(PaperPage& page, std::size_t index) const;

  const Report& report_;
  double scale_;    ///< of all that is drawn
  PaperArea area_;  ///< before it is scaled
  const PaperMeasures& measures_;
  std::string date_;
  std::vector<std::string> paragraphs_;        ///< below the tables
  std::size_t alarms_ = 0;                     ///< how many of them say what does not add up
  std::vector<std::vector<TablePart>> parts_;  ///< of each table
  PageFlow flow_;
  std::vector<PageOf> pages_;
};

}  // namespace depcalc
