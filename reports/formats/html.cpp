#include "reports/formats/html.h"

#include <algorithm>

#include "reports/charts/chart_svg.h"
#include "values/html_text.h"
#include "values/printable_text.h"

namespace depcalc {
namespace {

constexpr std::string_view head_before_title = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>)";

constexpr std::string_view head_after_title = R"(</title>
<style>
:root { color-scheme: light dark; --ink: #1e1e1e; --soft: #5a5a5a; --paper: #fff; --mark: #6a0000;
  --band: #f5e9de; --tint: #faf6f1; --line: #e4dcd4; }
@media (prefers-color-scheme: dark) {
  :root { --ink: #ececec; --soft: #b0b0b0; --paper: #1b1a19; --mark: #ff9d8a; --band: #3a2e27;
    --tint: #262321; --line: #46403b; } }
body { margin: 2rem; background: var(--paper); color: var(--ink);
  font: 0.9rem/1.35 system-ui, "Segoe UI", "DejaVu Sans", sans-serif; }
h1 { margin: 0; color: var(--mark); font-size: 1.5rem; }
h1 + p { margin: 0.2rem 0 1.5rem; color: var(--soft); }
.table { overflow-x: auto; }
table { border-collapse: collapse; margin-bottom: 1.5rem; min-width: min(100%, 40rem); }
caption { text-align: left; font-weight: 600; padding: 0.4rem 0; }
th, td { padding: 0.3rem 0.55rem; text-align: left; vertical-align: top;
  border-bottom: 1px solid var(--line); overflow-wrap: break-word; }
thead th { background: var(--band); border-bottom: 1px solid var(--mark); vertical-align: bottom; }
.r { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
thead .r { white-space: normal; }
.d { white-space: nowrap; font-variant-numeric: tabular-nums; }
.t { max-width: 28rem; }
.group th { background: var(--tint); }
.sum > * { font-weight: 600; }
tfoot .sum > * { border-top: 2px solid var(--mark); border-bottom: 4px double var(--mark); }
.remark { margin: 0.2rem 0; color: var(--soft); font-size: 0.85em; max-width: 60rem; }
@page { margin: 14mm; }
@media print {
  :root { color-scheme: light; --ink: #000; --soft: #444; --paper: #fff; --mark: #6a0000;
    --band: #f5e9de; --tint: #faf6f1; --line: #ccc; }
  body { margin: 0; font-size: 8pt; }
  .table { overflow: visible; }
  thead { display: table-header-group; }
  tfoot { display: table-row-group; }
  tr { break-inside: avoid; }
  thead th, .group th { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
)";

/// Tables with more columns than this are printed across the page.
constexpr std::size_t columns_upright = 8;

std::string shown(std::string_view text) { return htmlText(printableText(text)); }

class TableHtml {
 public:
  TableHtml(const Table& table, std::string& out)
      : table_(table), out_(out), shown_(shownColumns(table)) {}

  void write() {
    out_ += "<div class=\"table\">\n<table>\n";
    if (!table_.caption().empty()) out_ += "<caption>" + shown(table_.caption()) + "</caption>\n";
    writeCaptions();
    if (table_.groups().empty()) {
      out_ += "<tbody>\n";
      for (std::size_t i = 0; i < table_.rowCount(); ++i) writeRow(table_.row(i));
      out_ += "</tbody>\n";
    }
    for (const RowGroup& group : table_.groups()) writeGroup(group);
    if (!table_.total().empty()) {
      out_ += "<tfoot>\n";
      writeSum(table_.totalLabel(), table_.total());
      out_ += "</tfoot>\n";
    }
    out_ += "</table>\n</div>\n";
  }

 private:
  void writeCaptions() {
    out_ += "<thead>\n<tr>";
    for (const std::size_t i : shown_) {
      const Column& column = table_.columns()[i];
      out_ += standsRight(column.kind) ? "<th scope=\"col\" class=\"r\">" : "<th scope=\"col\">";
      out_ += shown(column.caption) + "</th>";
    }
    out_ += "</tr>\n</thead>\n";
  }

  void writeRow(std::span<const Cell> cells) {
    out_ += "<tr>";
    for (const std::size_t i : shown_) writeCell(cells[i], table_.columns()[i]);
    out_ += "</tr>\n";
  }

  void writeCell(const Cell& cell, const Column& column) {
    out_ += standsRight(column.kind)          ? "<td class=\"r\">"
            : column.kind == ColumnKind::date ? "<td class=\"d\">"
                                              : "<td class=\"t\">";
    const std::string text = shown(shownText(cell, column));
    if (std::holds_alternative<Currency>(cell)) {
      out_ += "<data value=\"" + dataText(cell) + "\">" + text + "</data>";
    } else if (std::holds_alternative<Date>(cell)) {
      out_ += "<time datetime=\"" + dataText(cell) + "\">" + text + "</time>";
    } else {
      out_ += text;
    }
    out_ += "</td>";
  }

  void writeGroup(const RowGroup& group) {
    out_ += "<tbody>\n<tr class=\"group\"><th scope=\"rowgroup\" colspan=\"" +
            std::to_string(shown_.size()) + "\">" + shown(group.name) + "</th></tr>\n";
    for (const std::size_t row : group.rows) writeRow(table_.row(row));
    writeSum(group.label, group.total);
    out_ += "</tbody>\n";
  }

  void writeSum(const std::string& label, const std::vector<Cell>& sums) {
    const std::size_t width = labelWidth(table_, shown_);
    out_ += "<tr class=\"sum\"><th scope=\"row\" colspan=\"" + std::to_string(width) + "\">" +
            shown(label) + "</th>";
    for (std::size_t i = width; i < shown_.size(); ++i) {
      writeCell(sums[shown_[i]], table_.columns()[shown_[i]]);
    }
    out_ += "</tr>\n";
  }

  const Table& table_;
  std::string& out_;
  std::vector<std::size_t> shown_;
};

constexpr PaperArea chart_area{13800, 4500};  // twips

constexpr std::string_view chart_rules = R"(figure { margin: 0 0 1.5rem; }
.chart { max-width: 100%; height: auto; }
@media screen and (prefers-color-scheme: dark) {
)";

void addChart(std::string& out, const Chart& chart) {
  out += "<figure>\n" + chartSvg(chart, chart_area, SvgUse::in_a_page) + "</figure>\n";
}

bool isWide(const Report& report) {
  return std::any_of(report.tables.begin(), report.tables.end(), [](const Table& table) {
    return shownColumns(table).size() > columns_upright;
  });
}

}  // namespace

std::string htmlReport(const Report& report) {
  const std::string title = shown(report.title);
  std::string out;
  out.append(head_before_title).append(title).append(head_after_title);
  if (isWide(report)) out += "@page { size: landscape; }\n";
  if (report.chart) out.append(chart_rules).append(chartStyleOnDark()).append("}\n");
  out += "</style>\n</head>\n<body>\n";
  out += "<h1>" + title + "</h1>\n<p>" + shown(report.covers) + "</p>\n";
  for (const Table& table : report.tables) TableHtml(table, out).write();
  if (report.chart) addChart(out, *report.chart);
  for (const std::string& note : report.notes) {
    out += "<p class=\"remark\">" + shown(note) + "</p>\n";
  }
  for (const std::string& proof : report.proofs) {
    out += "<p class=\"remark\">Proof: " + shown(proof) + "</p>\n";
  }
  return out += "</body>\n</html>\n";
}

}  // namespace depcalc
