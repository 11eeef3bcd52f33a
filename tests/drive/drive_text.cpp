#include "tests/drive/drive_text.h"

#include <array>

#include "controls/drop_down_list.h"
#include "controls/label.h"
#include "controls/option_button.h"
#include "controls/picture_box.h"
#include "controls/picture_button.h"
#include "controls/text_box.h"
#include "values/number_text.h"

namespace depcalc::drive {
namespace {

std::string rawTextOf(const Control& control) {
  switch (control.kind()) {
    case ControlKind::label:
      return static_cast<const Label&>(control).text();
    case ControlKind::textBox:
      return static_cast<const TextBox&>(control).text();
    case ControlKind::dropDownList:
      return static_cast<const DropDownList&>(control).text();
    case ControlKind::optionButton: {
      const auto& option = static_cast<const OptionButton&>(control);
      return (option.value() ? "(*) " : "( ) ") + option.text();
    }
    case ControlKind::pictureButton:
      return static_cast<const PictureButton&>(control).caption();
    case ControlKind::pictureBox:
      return static_cast<const PictureBox&>(control).picture();
    case ControlKind::grid: {
      const auto& grid = static_cast<const Grid&>(control);
      return std::to_string(grid.rows()) + " rows, " + std::to_string(grid.columns()) + " columns";
    }
    case ControlKind::shape:
    case ControlKind::userControl:
      return {};
  }
  return {};
}

void printProperty(std::ostream& out, std::string_view name, std::string_view value) {
  out << name << '=' << inOneLine(value) << '\n';
}

std::string dateText(Date date) { return date.isNone() ? std::string() : date.toText(); }
std::string flagText(bool flag) { return flag ? "True" : "False"; }

void printNumbers(std::ostream& out, std::string_view what, const std::vector<int>& numbers) {
  out << ' ' << what;
  for (std::size_t first = 0; first < numbers.size();) {
    std::size_t last = first;
    while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
    out << ' ' << numbers[first];
    if (last > first) out << '-' << numbers[last];
    first = last + 1;
  }
}

template <typename Number>
void printEach(std::ostream& out, std::string_view what, int count, Number number) {
  out << what;
  for (int i = 0; i < count; ++i) out << ' ' << number(i);
  out << '\n';
}

/// In the order of CellAlignment.
constexpr std::array<std::string_view, 9> alignment_texts = {"lt", "lc", "lb", "ct", "cc",
                                                             "cb", "rt", "rc", "rb"};

}  // namespace

std::string inOneLine(std::string_view text) {
  std::string line;
  for (const char character : text) {
    if (character == '\n') {
      line += "\\n";
    } else if (character == '\t') {
      line += "\\t";
    } else if (character != '\r') {
      line += character;
    }
  }
  return line;
}

std::string textOf(const Control& control) { return inOneLine(rawTextOf(control)); }

void printScreen(std::ostream& out, const UserControl& screen) {
  out << screen.name() << '\n';
  for (const Control* control : screen.children()) {
    if (!control->isShown()) continue;
    const auto* const input = dynamic_cast<const InputControl*>(control);
    const std::string text = textOf(*control);
    out << (input != nullptr && input->hasFocus() ? "*" : "") << control->name() << ':'
        << (text.empty() ? "" : " ") << text << '\n';
  }
}

void printGrid(std::ostream& out, const Grid& grid) {
  for (int row = 0; row < grid.rows(); ++row) {
    for (int column = 0; column < grid.columns(); ++column) {
      out << (column == 0 ? "" : "\t") << inOneLine(grid.text(row, column));
    }
    out << '\n';
  }
}

void printPlace(std::ostream& out, std::string_view name, const Control& control) {
  out << "place " << name << ' ' << control.left() << ' ' << control.top() << ' ' << control.width()
      << ' ' << control.height() << (control.isShown() ? " shown" : " hidden") << " stacking "
      << control.stacking() << '\n';
}

void printSizes(std::ostream& out, const Grid& grid) {
  printEach(out, "widths", grid.columns(), [&](int column) { return grid.columnWidth(column); });
  printEach(out, "heights", grid.rows(), [&](int row) { return grid.rowHeight(row); });
  printEach(out, "columndata", grid.columns(), [&](int column) { return grid.columnData(column); });
  printEach(out, "rowdata", grid.rows(), [&](int row) { return grid.rowData(row); });
  out << "current " << grid.row() << ' ' << grid.column() << '\n';
  out << "first " << grid.topRow() << ' ' << grid.leftColumn() << '\n';
  out << "redraw " << (grid.redraw() ? "on" : "off") << '\n';
  out << "least " << grid.minimumRowHeight() << '\n';
}

void printLooks(std::ostream& out, const Grid& grid) {
  for (int row = 0; row < grid.rows(); ++row) {
    out << "look " << row;
    for (int column = 0; column < grid.columns(); ++column) {
      const auto alignment = static_cast<std::size_t>(grid.alignment(row, column));
      out << ' ' << alignment_texts[alignment] << (grid.bold(row, column) ? "*" : "");
    }
    out << '\n';
  }
}

void printRecord(std::ostream& out, const CalculateDep& record) {
  printProperty(out, "RecIndex", record.RecIndex());
  printProperty(out, "RecNew", flagText(record.RecNew()));
  printProperty(out, "AssetID", record.AssetID());
  printProperty(out, "AssetName", record.AssetName());
  printProperty(out, "ASerial", record.ASerial());
  printProperty(out, "ADept", record.ADept());
  printProperty(out, "AssetEndDate", dateText(record.AssetEndDate()));
  printProperty(out, "ASalePrice", record.ASalePrice());
  printProperty(out, "AssetBasis", record.AssetBasis().toText());
  printProperty(out, "AssetStartDate", dateText(record.AssetStartDate()));
  printProperty(out, "AssetSalvage", record.AssetSalvage().toText());
  printProperty(out, "AssetProdCap", record.AssetProdCap());
  printProperty(out, "DepRecovery", numberToText(record.DepRecovery()));
  printProperty(out, "DepConvention", record.DepConvention());
  printProperty(out, "FYEnd", dateText(record.FYEnd()));
  printProperty(out, "DepMethod", record.DepMethod());
  int year = 0;
  for (const Currency amount : record.depItems()) {
    out << "DepItem(" << year++ << ")=" << amount.toText() << '\n';
  }
}

void printTable(std::ostream& out, HostTable& table) {
  for (std::int32_t index = 0; index < table.Count(); ++index) {
    const auto record = table.Item(static_cast<std::int16_t>(index));
    for (const std::string& name : record->Fields().names()) {
      const StoredValue value = record->Fields().GetValue(name);
      out << index << '\t' << name << '\t' << value.typeName() << '\t' << inOneLine(value.asText())
          << '\n';
    }
  }
}

void printPages(std::ostream& out, const std::vector<PageRecorder::Page>& pages) {
  int number = 0;
  for (const PageRecorder::Page& page : pages) {
    out << "page " << ++number << '\n';
    for (const auto& [x, y, text] : page.texts) {
      out << "text " << x << ' ' << y << ' ' << inOneLine(text) << '\n';
    }
    for (const auto& [x, y, picture] : page.pictures) {
      out << "picture " << x << ' ' << y;
      printNumbers(out, "rows", picture.rows);
      printNumbers(out, "columns", picture.columns);
      out << '\n';
    }
  }
}

}  // namespace depcalc::drive
