#include "reports/pages/table_columns.h"

#include <algorithm>
#include <numeric>

#include "reports/pages/broken_lines.h"

namespace depcalc {
namespace {

// Twips.
constexpr double widest_unbroken = 1400;  ///< a longer word in a text may be broken

// Parts of the page's width.
constexpr double most_for_text = 0.4;
constexpr double most_for_keys = 0.4;
constexpr double most_stretch = 1.6;

struct Need {
  double least = 0;
  double natural = 0;
};

/// What the cells of one column need.
class ColumnNeed {
 public:
  ColumnNeed(const Table& table, std::size_t column, const PaperMeasures& measures)
      : index_(column), column_(table.columns()[column]), measures_(measures) {
    need_.least = need_.natural = widestWord(column_.caption, PaperFont::heading, measures);
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
      add(table.row(row)[column], PaperFont::body);
    }
    for (const RowGroup& group : table.groups()) addSum(group.total);
    addSum(table.total());
  }

  [[nodiscard]] Need of(double page_width) const {
    const double margins = 2 * cell_margin;
    const double most = std::max(need_.least, page_width * most_for_text - margins);
    return {need_.least + margins, std::min(need_.natural, most) + margins};
  }

 private:
  void addSum(const std::vector<Cell>& sum) {
    if (!sum.empty()) add(sum[index_], PaperFont::strong);
  }
  void add(const Cell& cell, PaperFont font) {
    const std::string text = shownText(cell, column_);
    const double width = measures_.width(text, font);
    need_.natural = std::max(need_.natural, width);
    if (width <= need_.least) return;
    need_.least = std::max(need_.least, column_.kind == ColumnKind::text ? leastOf(text, font) : width);
  }
  [[nodiscard]] double leastOf(const std::string& text, PaperFont font) const {
    return std::min(widest_unbroken, widestWord(text, font, measures_));
  }

  std::size_t index_;
  const Column& column_;
  const PaperMeasures& measures_;
  Need need_;
};

/// The columns that say which asset a row is about; where there are none, the first one.
std::size_t keyCount(const Table& table, const std::vector<std::size_t>& shown) {
  constexpr std::string_view names[] = {"n", "id", "name"};
  std::size_t count = 0;
  while (count < std::size(names) && count < shown.size() &&
         table.columns()[shown[count]].name == names[count]) {
    ++count;
  }
  return std::max<std::size_t>(1, count);
}

double sum(const std::vector<Need>& needs, double Need::*what) {
  return std::accumulate(needs.begin(), needs.end(), 0.0,
                         [what](double sum, const Need& need) { return sum + need.*what; });
}

/// Widths between what each needs at least and what it would like, `room` altogether, or less
/// where that is enough for all.
std::vector<double> squeezed(const std::vector<Need>& needs, double room) {
  const double least = sum(needs, &Need::least);
  const double wanted = sum(needs, &Need::natural) - least;
  const double share = wanted <= 0 ? 0 : std::clamp((room - least) / wanted, 0.0, 1.0);
  std::vector<double> widths;
  for (const Need& need : needs) {
    widths.push_back(need.least + (need.natural - need.least) * share);
  }
  return widths;
}

TablePart placed(const std::vector<std::size_t>& columns, const std::vector<double>& widths) {
  TablePart part;
  double x = 0;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    part.push_back({columns[i], x, widths[i]});
    x += widths[i];
  }
  return part;
}

/// Takes up to `most` times the room that it needs, within `width`.
TablePart stretched(TablePart part, std::size_t keys, double width, double most) {
  const double fixed = keys == part.size() ? 0 : part[keys].x;
  const double used = part.back().right() - fixed;
  const double factor = std::clamp((width - fixed) / used, 1.0, most);
  for (PaperColumn& column : part) {
    if (column.x < fixed) continue;
    column.x = fixed + (column.x - fixed) * factor;
    column.width *= factor;
  }
  return part;
}

/// Columns beside the keys, as many to a part as there is room for.
std::vector<TablePart> split(const std::vector<std::size_t>& columns,
                             const std::vector<Need>& needs, std::size_t keys, double width) {
  const auto past_keys = static_cast<std::ptrdiff_t>(keys);
  const std::vector<std::size_t> key_columns(columns.begin(), columns.begin() + past_keys);
  const std::vector<double> key_widths =
      squeezed({needs.begin(), needs.begin() + past_keys}, width * most_for_keys);
  const double beside = width - std::accumulate(key_widths.begin(), key_widths.end(), 0.0);
  std::vector<TablePart> parts;
  for (std::size_t next = keys; next < columns.size();) {
    std::vector<std::size_t> part_columns = key_columns;
    std::vector<double> widths = key_widths;
    double used = 0;
    for (; next < columns.size(); ++next) {
      const double needed = std::min(needs[next].natural, beside);
      if (part_columns.size() > keys && used + needed > beside) break;
      part_columns.push_back(columns[next]);
      widths.push_back(needed);
      used += needed;
    }
    parts.push_back(placed(part_columns, widths));
  }
  for (TablePart& part : parts) {
    const bool last = &part == &parts.back();
    const double before = parts.front()[keys].width / std::min(needs[keys].natural, beside);
    part = stretched(std::move(part), keys, width, last ? std::max(1.0, before) : most_stretch);
  }
  return parts;
}

}  // namespace

std::vector<TablePart> tableParts(const Table& table, double width, const PaperMeasures& measures) {
  const std::vector<std::size_t> shown = shownColumns(table);
  std::vector<Need> needs;
  for (const std::size_t column : shown) {
    needs.push_back(ColumnNeed(table, column, measures).of(width));
  }
  const std::size_t keys = keyCount(table, shown);
  if (sum(needs, &Need::least) <= width || keys == shown.size()) {
    return {stretched(placed(shown, squeezed(needs, width)), 0, width, most_stretch)};
  }
  return split(shown, needs, keys, width);
}

std::size_t labelColumns(const Table& table, const TablePart& part) {
  std::vector<std::size_t> columns;
  for (const PaperColumn& column : part) columns.push_back(column.column);
  return labelWidth(table, columns);
}

}  // namespace depcalc
