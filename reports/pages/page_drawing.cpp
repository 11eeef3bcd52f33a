#include "reports/pages/page_drawing.h"

#include <algorithm>
#include <cmath>

#include "reports/charts/chart_layout.h"
#include "reports/pages/broken_lines.h"

namespace depcalc {
namespace {

constexpr double sum_line = 20;       // twips
constexpr double between_lines = 30;  // twips
constexpr std::string_view continued = " (continued)";

}  // namespace

bool isInParts(FlowKind kind) {
  return kind == FlowKind::captions || kind == FlowKind::groupName || kind == FlowKind::row ||
         kind == FlowKind::subtotal || kind == FlowKind::total;
}

/// Numbers and dates have the room that they need.
std::vector<std::string> cellLines(const Table& table, const PaperColumn& column, const Cell& cell,
                                   const PaperMeasures& measures) {
  const Column& of = table.columns()[column.column];
  const std::string text = shownText(cell, of);
  if (of.kind != ColumnKind::text) return {text};
  return brokenLines(text, column.room(), PaperFont::body, measures);
}

double labelRoom(const Table& table, const TablePart& part) {
  return part[labelColumns(table, part) - 1].right() - 2 * cell_margin;
}

void drawParagraph(PaperPage& page, const PlacedBlock& placed, std::string_view text, double width,
                   const PaperMeasures& measures) {
  const PaperFont font = fontOf(placed.block.kind);
  const std::vector<std::string> lines = brokenLines(text, width, font, measures);
  double y = placed.y + paddingOf(placed.block.kind);
  for (std::size_t i = 0; i < placed.lines && placed.first_line + i < lines.size(); ++i) {
    page.texts.push_back({0, y, font, lines[placed.first_line + i]});
    y += measures.lineHeight(font);
  }
}

std::optional<std::uint32_t> chartLines(PaperArea area, const PaperMeasures& measures) {
  const double wanted = area.width < wide_chart.width ? least_chart.height : wide_chart.height;
  const double line = measures.lineHeight(fontOf(FlowKind::chart));
  if (area.width < least_chart.width || area.height < wanted + 4 * line) return std::nullopt;
  return static_cast<std::uint32_t>(std::ceil(wanted / line));
}

void drawChart(PaperPage& page, const PlacedBlock& placed, const Chart& chart, double width,
               const PaperMeasures& measures) {
  const double above = placed.y + paddingOf(placed.block.kind);
  const double height = placed.height - 2 * paddingOf(placed.block.kind);
  const ChartLayout layout(chart, {width, height}, measures, {.year = {}, .titled = true});
  for (PaperText text : layout.page().texts) {
    text.y += above;
    page.texts.push_back(std::move(text));
  }
  for (PaperStroke stroke : layout.page().strokes) {
    for (PaperPoint& point : stroke.points) point.y += above;
    page.strokes.push_back(std::move(stroke));
  }
}

void TableDrawing::draw(const PlacedBlock& placed) const {
  switch (placed.block.kind) {
    case FlowKind::captions:
      return drawCaptions(placed);
    case FlowKind::groupName:
      return drawGroupName(placed);
    case FlowKind::subtotal: {
      const RowGroup& group = table_.groups()[placed.block.source];
      return drawSum(placed, group.label, group.total);
    }
    case FlowKind::total: {
      putBox(placed.y, sum_line, PaperTone::accent);
      const double bottom = placed.y + placed.height;
      putBox(bottom - between_lines - hairline, hairline, PaperTone::accent);
      putBox(bottom - hairline, hairline, PaperTone::accent);
      return drawSum(placed, table_.totalLabel(), table_.total());
    }
    default:
      drawRow(placed);
  }
}

void TableDrawing::putBox(double y, double height, PaperTone tone) const {
  page_.boxes.push_back({0, y, width(), height, tone});
}

void TableDrawing::putLines(const PlacedBlock& placed, const PaperColumn& column,
                            const std::vector<std::string>& lines, PaperFont font,
                            bool right) const {
  double y = placed.y + paddingOf(placed.block.kind);
  for (std::size_t i = 0; i < placed.lines && placed.first_line + i < lines.size(); ++i) {
    const std::string& line = lines[placed.first_line + i];
    const double spare = right ? column.room() - measures_.width(line, font) : 0;
    if (!line.empty()) page_.texts.push_back({column.x + cell_margin + spare, y, font, line});
    y += measures_.lineHeight(font);
  }
}

void TableDrawing::drawCaptions(const PlacedBlock& placed) const {
  putBox(placed.y, placed.height, PaperTone::heading);
  putBox(placed.y + placed.height - hairline, hairline, PaperTone::accent);
  for (const PaperColumn& column : part_) {
    const Column& of = table_.columns()[column.column];
    std::vector<std::string> lines =
        brokenLines(of.caption, column.room(), PaperFont::heading, measures_);
    // They stand right above what they name.
    lines.insert(lines.begin(), placed.block.lines - lines.size(), std::string());
    putLines(placed, column, lines, PaperFont::heading, standsRight(of.kind));
  }
}

void TableDrawing::drawGroupName(const PlacedBlock& placed) const {
  putBox(placed.y, placed.height, PaperTone::group);
  // Beside a narrow table nothing is in its way.
  const PaperColumn across{0, 0, page_width_};
  const std::string& name = table_.groups()[placed.block.source].name;
  if (!placed.repeated) {
    putLines(placed, across, brokenLines(name, across.room(), PaperFont::strong, measures_),
             PaperFont::strong, false);
    return;
  }
  const double room = across.room() - measures_.width(continued, PaperFont::strong);
  const std::string again = shortened(name, room, PaperFont::strong, measures_);
  putLines(placed, across, {again + std::string(continued)}, PaperFont::strong, false);
}

void TableDrawing::drawRow(const PlacedBlock& placed) const {
  putBox(placed.y + placed.height - hairline, hairline, PaperTone::hairline);
  const auto cells = table_.row(placed.block.source);
  for (const PaperColumn& column : part_) {
    putLines(placed, column, cellLines(table_, column, cells[column.column], measures_),
             PaperFont::body, standsRight(table_.columns()[column.column].kind));
  }
}

void TableDrawing::drawSum(const PlacedBlock& placed, const std::string& label,
                           const std::vector<Cell>& sum) const {
  const std::size_t before = labelColumns(table_, part_);
  const PaperColumn across{0, 0, part_[before - 1].right()};
  putBox(placed.y + placed.height - hairline, hairline, PaperTone::hairline);
  putLines(placed, across, brokenLines(label, across.room(), PaperFont::strong, measures_),
           PaperFont::strong, false);
  for (std::size_t i = before; i < part_.size(); ++i) {
    const Column& column = table_.columns()[part_[i].column];
    putLines(placed, part_[i], {shownText(sum[part_[i].column], column)}, PaperFont::strong,
             standsRight(column.kind));
  }
}

}  // namespace depcalc
