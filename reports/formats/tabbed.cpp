#include "reports/formats/tabbed.h"

#include "values/data_text.h"

namespace depcalc {
namespace {

std::string fieldOf(const Cell& cell) {
  const auto* text = std::get_if<const std::string*>(&cell);
  return text == nullptr ? dataText(cell) : tabbedField(guardedText(**text));
}

template <typename FieldOf>
void appendRow(std::string& out, std::size_t count, FieldOf fieldOfColumn) {
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) out += '\t';
    out += fieldOfColumn(i);
  }
  out += '\n';
}

}  // namespace

std::string tabbedReport(const Report& report) {
  const Table& table = report.tables[report.data_table];
  const std::size_t columns = table.columns().size();
  std::string out;
  appendRow(out, columns, [&](std::size_t i) { return table.columns()[i].caption; });
  for (std::size_t row = 0; row < table.rowCount(); ++row) {
    appendRow(out, columns, [&](std::size_t i) { return fieldOf(table.row(row)[i]); });
  }
  if (table.total().empty()) return out;
  appendRow(out, columns, [&](std::size_t i) {
    return i == 0 ? tabbedField(table.totalLabel()) : fieldOf(table.total()[i]);
  });
  return out;
}

}  // namespace depcalc
