#include "reports/formats/json.h"

#include "values/json_writer.h"

namespace depcalc {
namespace {

void writeValue(JsonWriter& json, ColumnKind kind, const Cell& cell) {
  if (kind != ColumnKind::whole) {
    json.text(dataText(cell));
  } else if (cell == Cell()) {
    json.null();
  } else {
    json.number(dataText(cell));
  }
}

void writeRow(JsonWriter& json, const Table& table, std::span<const Cell> cells, bool is_total) {
  json.beginObject();
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const Column& column = table.columns()[i];
    json.name(column.name);
    if (is_total && i == 0) {
      json.text("total");
    } else {
      writeValue(json, is_total && cells[i] == Cell() ? ColumnKind::text : column.kind, cells[i]);
    }
  }
  json.endObject();
}

}  // namespace

std::string jsonReport(const Report& report) {
  const Table& table = report.tables[report.data_table];
  JsonWriter json;
  json.beginArray(JsonWriter::Layout::below);
  for (std::size_t i = 0; i < table.rowCount(); ++i) writeRow(json, table, table.row(i), false);
  if (!table.total().empty()) writeRow(json, table, table.total(), true);
  json.endArray();
  return std::string(json.take());
}

}  // namespace depcalc
