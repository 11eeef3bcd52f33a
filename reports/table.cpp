#include "reports/table.h"

#include <algorithm>

#include "values/display_format.h"
#include "values/number_text.h"

namespace depcalc {

Table::Table(std::vector<Column> columns, std::string caption)
    : caption_(std::move(caption)),
      columns_(std::move(columns)),
      texts_(std::make_shared<std::deque<std::string>>()) {}

std::span<const Cell> Table::row(std::size_t index) const {
  return std::span(cells_).subspan(index * columns_.size(), columns_.size());
}

Cell Table::text(std::string_view text) {
  if (text.empty()) return {};
  return &texts_->emplace_back(text);
}

void Table::add(std::span<const Cell> row) { cells_.insert(cells_.end(), row.begin(), row.end()); }

void Table::addGroup(RowGroup group) {
  group.total = sumOf(group.rows);
  groups_.push_back(std::move(group));
}

void Table::addTotal(std::string label) {
  std::vector<Cell> sums = noSums();
  for (std::size_t row = 0; row < rowCount(); ++row) addTo(sums, row);
  addTotal(std::move(sums), std::move(label));
}

void Table::addTotal(std::vector<Cell> total, std::string label) {
  total_ = std::move(total);
  total_label_ = std::move(label);
}

std::vector<Cell> Table::sumOf(const std::vector<std::size_t>& rows) const {
  std::vector<Cell> sums = noSums();
  for (const std::size_t row : rows) addTo(sums, row);
  return sums;
}

void Table::addTo(std::vector<Cell>& sums, std::size_t index) const {
  const auto cells = row(index);
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    const auto* amount = std::get_if<Currency>(&cells[column]);
    if (amount != nullptr) std::get<Currency>(sums[column]) += *amount;
  }
}

std::vector<Cell> Table::noSums() const {
  std::vector<Cell> sums(columns_.size());
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    if (columns_[column].kind == ColumnKind::amount) sums[column] = Currency();
  }
  return sums;
}

namespace {

bool isBlank(const Cell& cell) { return cell == Cell() || cell == Cell(Currency()); }

bool isBlankColumn(const Table& table, std::size_t column) {
  for (std::size_t row = 0; row < table.rowCount(); ++row) {
    if (!isBlank(table.row(row)[column])) return false;
  }
  return true;
}

}  // namespace

std::vector<std::size_t> shownColumns(const Table& table) {
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < table.columns().size(); ++i) {
    if (!table.columns()[i].optional || !isBlankColumn(table, i)) shown.push_back(i);
  }
  return shown;
}

std::size_t labelWidth(const Table& table, const std::vector<std::size_t>& shown) {
  const auto first = std::find_if(shown.begin(), shown.end(), [&](std::size_t column) {
    return table.columns()[column].kind == ColumnKind::amount;
  });
  return std::max<std::size_t>(1, static_cast<std::size_t>(first - shown.begin()));
}

namespace {

/// Texts and numbers look alike everywhere; amounts and dates are up to the formats.
struct PlainText {
  std::string operator()(std::monostate /*nothing*/) const { return {}; }
  std::string operator()(const std::string* text) const { return *text; }
  std::string operator()(std::int32_t number) const { return std::to_string(number); }
  std::string operator()(double number) const { return numberToText(number); }
};

struct DataText : PlainText {
  using PlainText::operator();
  std::string operator()(Currency amount) const { return amount.toFixed4(); }
  std::string operator()(Date date) const { return date.toIsoText(); }
};

struct ShownText : PlainText {
  using PlainText::operator();
  std::string operator()(Currency amount) const { return formatExactMoney(amount); }
  std::string operator()(Date date) const { return date.toText(); }
};

}  // namespace

std::string dataText(const Cell& cell) { return std::visit(DataText(), cell); }

std::string shownText(const Cell& cell, const Column& column) {
  if (column.blank_zero && cell == Cell(Currency())) return {};
  return std::visit(ShownText(), cell);
}

}  // namespace depcalc
