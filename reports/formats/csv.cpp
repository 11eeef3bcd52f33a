#include "reports/formats/csv.h"

namespace depcalc {
namespace {

void append(std::string& out, const Cell& cell, CsvFields fields) {
  if (const auto* text = std::get_if<const std::string*>(&cell)) {
    out += fields.text(**text);
  } else if (const auto* amount = std::get_if<Currency>(&cell)) {
    char buffer[Currency::fixed4_size];
    out.append(&buffer[0], amount->writeFixed4(&buffer[0]));
  } else {
    out += dataText(cell);
  }
}

void appendRow(std::string& out, std::span<const Cell> cells, CsvFields fields) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) out += ',';
    append(out, cells[i], fields);
  }
  out += '\n';
}

}  // namespace

std::string csvReport(const Report& report, CsvFields fields) {
  const Table& table = report.tables[report.data_table];
  std::string out;
  for (const Column& column : table.columns()) {
    if (!out.empty()) out += ',';
    out += column.name;
  }
  out += '\n';
  for (std::size_t i = 0; i < table.rowCount(); ++i) appendRow(out, table.row(i), fields);
  if (table.total().empty()) return out;
  out += "total";
  std::string total;
  appendRow(total, table.total(), fields);
  return out += total;
}

}  // namespace depcalc
