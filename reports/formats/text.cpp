#include "reports/formats/text.h"

#include <algorithm>

#include "values/printable_text.h"
#include "values/text.h"

namespace depcalc {
namespace {

/// The words of `caption` on lines of at most `width` characters where they fit.
std::vector<std::string> wrapped(std::string_view caption, std::size_t width) {
  std::vector<std::string> lines(1);
  while (!caption.empty()) {
    const std::string word(caption.substr(0, caption.find(' ')));
    caption.remove_prefix(std::min(word.size() + 1, caption.size()));
    std::string& line = lines.back();
    if (line.empty()) {
      line = word;
    } else if (characterCount(line) + 1 + characterCount(word) <= width) {
      line += ' ' + word;
    } else {
      lines.push_back(word);
    }
  }
  return lines;
}

class TableText {
 public:
  TableText(const Table& table, std::string& out)
      : table_(table), out_(out), shown_(shownColumns(table)) {
    measure();
  }

  void write() {
    if (!table_.caption().empty()) addLine(table_.caption());
    writeCaptions();
    if (table_.groups().empty()) {
      for (std::size_t i = 0; i < table_.rowCount(); ++i) writeRow(table_.row(i));
    }
    for (const RowGroup& group : table_.groups()) {
      if (&group != &table_.groups().front()) addLine("");
      writeGroup(group);
    }
    if (table_.total().empty()) return;
    if (!table_.groups().empty()) addLine("");
    writeRule('=');
    writeTotal(table_.totalLabel(), table_.total());
  }

 private:
  [[nodiscard]] const Column& column(std::size_t i) const { return table_.columns()[shown_[i]]; }

  void measure() {
    for (std::size_t i = 0; i < shown_.size(); ++i) {
      std::size_t width = 0;
      for (std::size_t row = 0; row < table_.rowCount(); ++row) {
        widen(width, table_.row(row), i);
      }
      for (const RowGroup& group : table_.groups()) widen(width, group.total, i);
      if (!table_.total().empty()) widen(width, table_.total(), i);
      if (i == 0 && labelWidth(table_, shown_) == 1) {
        width = std::max(width, characterCount(table_.totalLabel()));
      }
      captions_.push_back(wrapped(column(i).caption, std::max<std::size_t>(width, 8)));
      for (const std::string& line : captions_.back()) {
        width = std::max(width, characterCount(line));
      }
      widths_.push_back(width);
    }
  }
  void widen(std::size_t& width, std::span<const Cell> cells, std::size_t i) const {
    width = std::max(width, characterCount(cellText(cells, i)));
  }

  [[nodiscard]] std::string cellText(std::span<const Cell> cells, std::size_t i) const {
    return printableText(shownText(cells[shown_[i]], column(i)));
  }

  void writeCaptions() {
    std::size_t lines = 0;
    for (const auto& caption : captions_) lines = std::max(lines, caption.size());
    for (std::size_t line = 0; line < lines; ++line) {
      std::string text;
      for (std::size_t i = 0; i < captions_.size(); ++i) {
        const std::size_t blank = lines - captions_[i].size();
        addCell(text, i, line < blank ? "" : captions_[i][line - blank]);
      }
      addLine(std::move(text));
    }
    writeRule('-');
  }

  void writeRule(char c) {
    std::string text;
    for (std::size_t i = 0; i < widths_.size(); ++i) addCell(text, i, std::string(widths_[i], c));
    addLine(std::move(text));
  }

  void writeRow(std::span<const Cell> cells) {
    std::string text;
    for (std::size_t i = 0; i < shown_.size(); ++i) addCell(text, i, cellText(cells, i));
    addLine(std::move(text));
  }

  void writeGroup(const RowGroup& group) {
    addLine(printableText(group.name));
    for (const std::size_t row : group.rows) writeRow(table_.row(row));
    writeTotal(printableText(group.label), group.total);
  }

  /// A label that is too wide for the columns before the amounts stands on a line of its own.
  void writeTotal(const std::string& label, const std::vector<Cell>& total) {
    const std::size_t columns = labelWidth(table_, shown_);
    std::size_t room = 2 * (columns - 1);
    for (std::size_t i = 0; i < columns; ++i) room += widths_[i];
    const bool fits = characterCount(label) <= room;
    if (!fits) addLine(label);
    std::string text = padded(fits ? label : std::string(), room);
    for (std::size_t i = columns; i < shown_.size(); ++i) {
      addCell(text, i, cellText(total, i));
    }
    addLine(std::move(text));
  }

  void addCell(std::string& line, std::size_t i, const std::string& text) const {
    if (i > 0) line += "  ";
    line += standsRight(column(i).kind) ? rightAligned(text, widths_[i]) : padded(text, widths_[i]);
  }

  void addLine(std::string line) {
    out_ += line.erase(line.find_last_not_of(' ') + 1);
    out_ += '\n';
  }

  const Table& table_;
  std::string& out_;
  std::vector<std::size_t> shown_;
  std::vector<std::vector<std::string>> captions_;
  std::vector<std::size_t> widths_;
};

}  // namespace

std::string textReport(const Report& report) {
  std::string out = printableText(report.title) + '\n' + printableText(report.covers) + '\n';
  for (const Table& table : report.tables) {
    out += '\n';
    TableText(table, out).write();
  }
  if (!report.notes.empty()) out += '\n';
  for (const std::string& note : report.notes) out += printableText(note) + '\n';
  if (!report.proofs.empty()) out += '\n';
  for (const std::string& proof : report.proofs) out += "Proof: " + proof + '\n';
  return out;
}

}  // namespace depcalc
