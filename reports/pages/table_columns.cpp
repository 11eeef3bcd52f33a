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

  [[nodiscard]] const PaperNeed& need() const { return need_; }

 private:
  void addSum(const std::vector<Cell>& sum) {
    if (!sum.empty()) add(sum[index_], PaperFont::strong);
  }
  void add(const Cell& cell, PaperFont font) {
    const std::string text = shownText(cell, column_);
    const double width = measures_.width(text, font);
    need_.natural = std::max(need_.natural, width);
    if (width <= need_.least) return;
    need_.least =
        std::max(need_.least, column_.kind == ColumnKind::text ? leastOf(text, font) : width);
  }
  [[nodiscard]] double leastOf(const std::string& text, PaperFont font) const {
    return std::min(widest_unbroken, widestWord(text, font, measures_));
  }

  std::size_t index_;
  const Column& column_;
  const PaperMeasures& measures_;
  PaperNeed need_;
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

/// What the labels of sums need, which stand across the first columns.
PaperNeed needOfLabels(const Table& table, const PaperMeasures& measures) {
  PaperNeed need;
  const auto add = [&](const std::string& label) {
    const double word = widestWord(label, PaperFont::strong, measures);
    need.least = std::max(need.least, std::min(widest_unbroken, word));
    need.natural = std::max(need.natural, measures.width(label, PaperFont::strong));
  };
  for (const RowGroup& group : table.groups()) add(group.label);
  if (!table.total().empty()) add(table.totalLabel());
  return need;
}

double sum(const std::vector<PaperNeed>& needs, double PaperNeed::*what) {
  return std::accumulate(needs.begin(), needs.end(), 0.0,
                         [what](double sum, const PaperNeed& need) { return sum + need.*what; });
}

/// Widens the last of the first `columns` where a label across them all has no room.
void makeRoomForLabels(std::vector<PaperNeed>& needs, std::size_t columns, const PaperNeed& labels,
                       double page_width) {
  const std::vector<PaperNeed> across(needs.begin(),
                                      needs.begin() + static_cast<std::ptrdiff_t>(columns));
  const auto lacking = [&](double PaperNeed::*what, double wanted) {
    return std::max(0.0, wanted + 2 * cell_margin - sum(across, what));
  };
  const double most = page_width * most_for_keys - 2 * cell_margin;
  PaperNeed& last = needs[columns - 1];
  last.least += lacking(&PaperNeed::least, labels.least);
  last.natural += lacking(&PaperNeed::natural, std::min(labels.natural, most));
  last.natural = std::max(last.natural, last.least);
}

/// Widths between what each needs at least and what it would like, `room` altogether, or less
/// where that is enough for all.
std::vector<double> squeezed(const std::vector<PaperNeed>& needs, double room) {
  const double least = sum(needs, &PaperNeed::least);
  const double wanted = sum(needs, &PaperNeed::natural) - least;
  const double share = wanted <= 0 ? 0 : std::clamp((room - least) / wanted, 0.0, 1.0);
  std::vector<double> widths;
  for (const PaperNeed& need : needs) {
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
                             const std::vector<PaperNeed>& needs, std::size_t keys, double width) {
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

TableColumns::TableColumns(const Table& table, const PaperMeasures& measures)
    : shown_(shownColumns(table)),
      labels_(needOfLabels(table, measures)),
      keys_(keyCount(table, shown_)) {
  label_columns_ = std::min(keys_, labelWidth(table, shown_));
  for (const std::size_t column : shown_) {
    cells_.push_back(ColumnNeed(table, column, measures).need());
  }
}

/// With the margins of the cells. No text is to take up most of a page by itself.
std::vector<PaperNeed> TableColumns::needs(double page_width) const {
  constexpr double margins = 2 * cell_margin;
  std::vector<PaperNeed> needs = cells_;
  for (PaperNeed& need : needs) {
    const double most = std::max(need.least, page_width * most_for_text - margins);
    need = {need.least + margins, std::min(need.natural, most) + margins};
  }
  makeRoomForLabels(needs, label_columns_, labels_, page_width);
  return needs;
}

std::vector<TablePart> TableColumns::parts(double width) const {
  const std::vector<PaperNeed> all = needs(width);
  if (sum(all, &PaperNeed::least) <= width || keys_ == shown_.size()) {
    return {stretched(placed(shown_, squeezed(all, width)), 0, width, most_stretch)};
  }
  return split(shown_, all, keys_, width);
}

std::size_t labelColumns(const Table& table, const TablePart& part) {
  std::vector<std::size_t> columns;
  for (const PaperColumn& column : part) columns.push_back(column.column);
  return labelWidth(table, columns);
}

}  // namespace depcalc
