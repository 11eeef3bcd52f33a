// A report: tables that know what they hold, for any format to write.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "reports/chart.h"
#include "values/currency.h"
#include "values/date.h"

namespace depcalc {

/// What the cells of a column hold.
enum class ColumnKind : std::uint8_t {
  text,
  whole,   ///< a whole number that is no amount: the number of an asset
  label,   ///< a whole number that names something: a fiscal year, a journal entry
  number,  ///< years of useful life, units
  amount,  ///< money
  date,
};

/// Numbers stand to the right on paper and screens, texts and dates to the left.
constexpr bool standsRight(ColumnKind kind) {
  return kind != ColumnKind::text && kind != ColumnKind::date;
}

struct Column {
  std::string name;     ///< in data files: book_value
  std::string caption;  ///< for people: Book value
  ColumnKind kind = ColumnKind::text;
  bool optional = false;    ///< people need not see it where nothing stands in it
  bool blank_zero = false;  ///< people see nothing where an amount is 0
};

/// A value or nothing. Texts belong to the table that the cell stands in.
using Cell = std::variant<std::monostate, const std::string*, std::int32_t, double, Currency, Date>;

/// Rows that belong together on paper and screens, and what they sum up to.
struct RowGroup {
  std::string name;  ///< "Warehouse"; "(none)"
  std::vector<std::size_t> rows;
  std::string label;        ///< of the subtotal: "Warehouse, 2 assets"
  std::vector<Cell> total;  ///< a cell per column; empty cells but for the amounts
};

/// Rows in the order of data files. Where there are groups, each row is in one of them.
class Table {
 public:
  explicit Table(std::vector<Column> columns, std::string caption = {});

  /// What the table is about where a report has more than one; else empty.
  [[nodiscard]] const std::string& caption() const { return caption_; }
  [[nodiscard]] const std::vector<Column>& columns() const { return columns_; }
  [[nodiscard]] std::size_t rowCount() const { return cells_.size() / columns_.size(); }
  [[nodiscard]] std::span<const Cell> row(std::size_t index) const;
  [[nodiscard]] const std::vector<RowGroup>& groups() const { return groups_; }

  /// The sums of the amounts over all rows, empty cells elsewhere; no cells where a table has no
  /// total. Data files write "total" in its first column, people read `totalLabel`.
  [[nodiscard]] const std::vector<Cell>& total() const { return total_; }
  [[nodiscard]] const std::string& totalLabel() const { return total_label_; }

  /// A cell of that text.
  Cell text(std::string_view text);
  /// A cell for each column.
  void add(std::span<const Cell> row);
  void add(std::initializer_list<Cell> row) { add(std::span(row.begin(), row.size())); }
  /// The rows `group.rows` with their subtotal. A sum out of range is error 6.
  void addGroup(RowGroup group);
  /// Sums up all rows.
  void addTotal(std::string label);
  /// A total of those cells.
  void addTotal(std::vector<Cell> total, std::string label);

  [[nodiscard]] std::vector<Cell> sumOf(const std::vector<std::size_t>& rows) const;

 private:
  void addTo(std::vector<Cell>& sums, std::size_t row) const;
  [[nodiscard]] std::vector<Cell> noSums() const;

  std::string caption_;
  std::vector<Column> columns_;
  std::vector<Cell> cells_;
  std::vector<RowGroup> groups_;
  std::vector<Cell> total_;
  std::string total_label_;
  std::shared_ptr<std::deque<std::string>> texts_;  ///< copies of a table share theirs
};

struct Report {
  std::string title;   ///< "Depreciation schedule, FY2026"
  std::string covers;  ///< "Sample Joinery · April 1, 2025 to March 31, 2026 · …"
  std::vector<Table> tables = {};
  std::size_t data_table = 0;               ///< the one that data files hold
  std::optional<Chart> chart = {};          ///< below the tables, for people; has series
  std::vector<std::string> notes = {};      ///< what a reader should know besides
  std::vector<std::string> proofs = {};     ///< what every row and total was found to satisfy
  std::vector<std::string> disproofs = {};  ///< where one does not: a defect of the program
};

/// The columns that people see: all but the optional ones without a value other than 0.
std::vector<std::size_t> shownColumns(const Table& table);

/// How many of the columns `shown`, at least one, the label of a total takes up: those before the
/// first amount.
std::size_t labelWidth(const Table& table, const std::vector<std::size_t>& shown);

/// The cell as data files write it: amounts with four decimals, dates as YYYY-MM-DD.
std::string dataText(const Cell& cell);

/// The cell of `column` as people read it: amounts with two decimals at least, dates as mm/dd/yyyy.
std::string shownText(const Cell& cell, const Column& column);

}  // namespace depcalc
