#include "reports/pages/report_pages.h"

#include <algorithm>

#include "reports/company_years.h"
#include "reports/pages/broken_lines.h"
#include "reports/pages/page_drawing.h"

namespace depcalc {
namespace {

constexpr double foot_gap = 160;  // twips

FlowBlock block(FlowKind kind, std::size_t lines, std::size_t table = 0, std::size_t source = 0,
                bool glued = false) {
  return {kind, glued, static_cast<std::uint32_t>(std::max<std::size_t>(1, lines)),
          static_cast<std::uint32_t>(table), static_cast<std::uint32_t>(source)};
}

/// Whether a table has to be spread over pages beside each other.
bool anySpread(const std::vector<TableColumns>& tables, double width) {
  return std::any_of(tables.begin(), tables.end(), [width](const TableColumns& columns) {
    return columns.parts(width).size() > 1;
  });
}

std::vector<TableColumns> measured(const Report& report, const PaperMeasures& measures) {
  std::vector<TableColumns> tables;
  for (const Table& table : report.tables) tables.emplace_back(table, measures);
  return tables;
}

/// The largest at which every table has room across the page; the usual one where none is.
double scaleFor(const std::vector<TableColumns>& tables, double width) {
  for (const double scale : {1.0, 0.94, 0.88, 0.82}) {
    if (!anySpread(tables, width / scale)) return scale;
  }
  return 1;
}

}  // namespace

ReportPages::ReportPages(const Report& report, PaperArea area, const PaperMeasures& measures,
                         Date today)
    : ReportPages(report, measured(report, measures), area, measures, today) {}

ReportPages::ReportPages(const Report& report, const std::vector<TableColumns>& tables,
                         PaperArea area, const PaperMeasures& measures, Date today)
    : report_(report),
      scale_(scaleFor(tables, area.width)),
      area_{area.width / scale_, area.height / scale_},
      measures_(measures),
      date_(longDate(today)),
      flow_(area_.height - footHeight(measures), measures) {
  for (const TableColumns& columns : tables) parts_.push_back(columns.parts(area_.width));
  layOut();
}

double ReportPages::footHeight(const PaperMeasures& measures) {
  return foot_gap + 2 * measures.lineHeight(PaperFont::small);
}

std::size_t ReportPages::linesOf(FlowKind kind, std::string_view text) const {
  return brokenLines(text, area_.width, fontOf(kind), measures_).size();
}

void ReportPages::layOut() {
  flow_.add(block(FlowKind::title, linesOf(FlowKind::title, report_.title)));
  flow_.add(block(FlowKind::lead, linesOf(FlowKind::lead, report_.covers)));
  for (std::size_t table = 0; table < report_.tables.size(); ++table) addTable(table);
  addChart();
  addParagraphs();
  flow_.finish();
  for (std::size_t band = 0; band < flow_.pages().size(); ++band) {
    std::size_t parts = 1;
    for (const PlacedBlock& placed : flow_.pages()[band]) {
      if (isInParts(placed.block.kind)) parts = std::max(parts, parts_[placed.block.table].size());
    }
    for (std::size_t part = 0; part < parts; ++part) pages_.push_back({band, part});
  }
}

void ReportPages::addTable(std::size_t index) {
  const Table& table = report_.tables[index];
  flow_.add(block(FlowKind::gap, 1));
  const bool named = !table.caption().empty();
  if (named) {
    flow_.add(
        block(FlowKind::tableCaption, linesOf(FlowKind::tableCaption, table.caption()), index));
  }
  flow_.add(block(FlowKind::captions, captionLines(index), index, 0, named));
  if (table.groups().empty()) {
    for (std::size_t row = 0; row < table.rowCount(); ++row) addRow(index, row, row == 0);
  }
  for (std::size_t group = 0; group < table.groups().size(); ++group) addGroup(index, group);
  if (table.total().empty()) return;
  flow_.add(block(FlowKind::total, sumLines(index, table.totalLabel()), index, 0, true));
}

/// The captions and the name stay with the first row, the sum with the last.
void ReportPages::addGroup(std::size_t table, std::size_t index) {
  const RowGroup& group = report_.tables[table].groups()[index];
  flow_.add(block(FlowKind::groupName, nameLines(group.name), table, index, index == 0));
  for (const std::size_t row : group.rows) addRow(table, row, row == group.rows.front());
  flow_.add(block(FlowKind::subtotal, sumLines(table, group.label), table, index, true));
}

void ReportPages::addRow(std::size_t table, std::size_t row, bool glued) {
  const auto cells = report_.tables[table].row(row);
  std::size_t lines = 1;
  for (const TablePart& part : parts_[table]) {
    for (const PaperColumn& column : part) {
      lines = std::max(
          lines, cellLines(report_.tables[table], column, cells[column.column], measures_).size());
    }
  }
  flow_.add(block(FlowKind::row, lines, table, row, glued));
}

void ReportPages::addChart() {
  const auto lines = report_.chart ? chartLines(area_, measures_) : std::nullopt;
  if (!lines) return;
  flow_.add(block(FlowKind::gap, 1));
  flow_.add(block(FlowKind::chart, *lines));
}

void ReportPages::addParagraphs() {
  paragraphs_ = report_.disproofs;
  alarms_ = paragraphs_.size();
  for (const std::string& proof : report_.proofs) paragraphs_.push_back("Proof: " + proof);
  paragraphs_.insert(paragraphs_.end(), report_.notes.begin(), report_.notes.end());
  for (std::size_t i = 0; i < paragraphs_.size(); ++i) {
    const FlowKind kind = i < alarms_ ? FlowKind::alarm : FlowKind::note;
    if (i == 0) flow_.add(block(FlowKind::gap, 1));
    flow_.add(block(kind, linesOf(kind, paragraphs_[i]), 0, i));
  }
}

std::size_t ReportPages::captionLines(std::size_t table) const {
  std::size_t lines = 1;
  for (const TablePart& part : parts_[table]) {
    for (const PaperColumn& column : part) {
      const std::string& caption = report_.tables[table].columns()[column.column].caption;
      lines = std::max(lines,
                       brokenLines(caption, column.room(), PaperFont::heading, measures_).size());
    }
  }
  return lines;
}

std::size_t ReportPages::nameLines(const std::string& name) const {
  const double room = area_.width - 2 * cell_margin;
  return brokenLines(name, room, PaperFont::strong, measures_).size();
}

/// Of the label, which is all of a sum that may be broken.
std::size_t ReportPages::sumLines(std::size_t table, const std::string& label) const {
  std::size_t lines = 1;
  for (const TablePart& part : parts_[table]) {
    const double room = labelRoom(report_.tables[table], part);
    lines = std::max(lines, brokenLines(label, room, PaperFont::strong, measures_).size());
  }
  return lines;
}

std::string_view ReportPages::textOf(const FlowBlock& block) const {
  switch (block.kind) {
    case FlowKind::title:
      return report_.title;
    case FlowKind::lead:
      return report_.covers;
    case FlowKind::tableCaption:
      return report_.tables[block.table].caption();
    case FlowKind::note:
    case FlowKind::alarm:
      return paragraphs_[block.source];
    default:
      return {};
  }
}

PaperPage ReportPages::page(std::size_t index) const {
  const auto [band, part] = pages_[index];
  PaperPage page{.scale = scale_};
  for (const PlacedBlock& placed : flow_.pages()[band]) {
    const FlowKind kind = placed.block.kind;
    if (kind == FlowKind::gap) continue;
    if (kind == FlowKind::chart) {
      if (part == 0) drawChart(page, placed, *report_.chart, area_.width, measures_);
      continue;
    }
    if (!isInParts(kind)) {
      const bool repeats =
          kind == FlowKind::title || kind == FlowKind::lead || kind == FlowKind::tableCaption;
      if (part == 0 || repeats)
        drawParagraph(page, placed, textOf(placed.block), area_.width, measures_);
      continue;
    }
    const std::uint32_t table = placed.block.table;
    if (part >= parts_[table].size()) continue;
    TableDrawing(report_.tables[table], parts_[table][part], area_.width, measures_, page)
        .draw(placed);
  }
  drawFoot(page, index);
  return page;
}

std::optional<ReportPages::TableCell> ReportPages::cellAt(std::size_t index, double x,
                                                          double y) const {
  const auto [band, part] = pages_[index];
  const auto within = [](double at, double from, double to) { return at >= from && at < to; };
  for (const PlacedBlock& placed : flow_.pages()[band]) {
    const FlowBlock& block = placed.block;
    if (block.kind != FlowKind::row || part >= parts_[block.table].size()) continue;
    if (!within(y / scale_, placed.y, placed.y + placed.height)) continue;
    for (const PaperColumn& column : parts_[block.table][part]) {
      if (within(x / scale_, column.x, column.right())) {
        return TableCell{block.table, block.source, column.column};
      }
    }
  }
  return std::nullopt;
}

/// A long company name stands whole at the head of the report, and here as far as there is room.
void ReportPages::drawFoot(PaperPage& page, std::size_t index) const {
  const double line = measures_.lineHeight(PaperFont::small);
  const double top = area_.height - 2 * line;
  page.boxes.push_back({0, top - foot_gap / 2, area_.width, hairline, PaperTone::hairline});
  const auto both = [&](double y, const std::string& left, const std::string& right) {
    const double width = measures_.width(right, PaperFont::small);
    const double room = area_.width - width - 2 * foot_gap;
    page.texts.push_back(
        {0, y, PaperFont::small, shortened(left, room, PaperFont::small, measures_)});
    page.texts.push_back({area_.width - width, y, PaperFont::small, right});
  };
  both(top, report_.title, "Page " + std::to_string(index + 1) + " of " + std::to_string(count()));
  both(top + line, report_.covers, date_);
}

}  // namespace depcalc
