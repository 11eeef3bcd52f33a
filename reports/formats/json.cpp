#include "reports/formats/json.h"

#include "values/json_text.h"

namespace depcalc {
namespace {

void appendValue(std::string& out, ColumnKind kind, const Cell& cell) {
  if (kind != ColumnKind::whole) {
    appendJsonString(out, dataText(cell));
  } else {
    out += cell == Cell() ? "null" : dataText(cell);
  }
}

void appendRow(std::string& out, const Table& table, std::span<const Cell> cells, bool is_total) {
  out += "{";
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) out += ',';
    appendJsonString(out, table.columns()[i].name);
    out += ':';
    if (is_total && i == 0) {
      out += "\"total\"";
    } else {
      appendValue(out, is_total && cells[i] == Cell() ? ColumnKind::text : table.columns()[i].kind,
                  cells[i]);
    }
  }
  out += '}';
}

}  // namespace

std::string jsonReport(const Report& report) {
  const Table& table = report.tables[report.data_table];
  std::string out = "[";
  for (std::size_t i = 0; i < table.rowCount(); ++i) {
    out += i == 0 ? "\n" : ",\n";
    appendRow(out, table, table.row(i), false);
  }
  if (!table.total().empty()) {
    out += table.rowCount() == 0 ? "\n" : ",\n";
    appendRow(out, table, table.total(), true);
  }
  return out += out.size() == 1 ? "]\n" : "\n]\n";
}

}  // namespace depcalc
