#include "importing/workbook/workbook.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "importing/workbook/sheet_reading.h"
#include "importing/workbook/zip_parts.h"

namespace depcalc {
namespace {

constexpr const char* not_readable =
    "This workbook cannot be read. Please open it in the spreadsheet program and save the sheet as "
    "CSV or as Unicode text.";

/// The relation of the first sheet that shows, and how its days are counted.
struct WorkbookPart final : XmlListener {
  void begins(std::string_view element, const XmlAttributes& attributes) override {
    if (element == "workbookPr") {
      from_1904 = attributes["date1904"] == "1" || attributes["date1904"] == "true";
    }
    const std::string_view state = attributes["state"];
    if (element == "sheet" && sheet.empty() && (state.empty() || state == "visible")) {
      sheet = attributes["id"];
    }
  }
  void ends(std::string_view /*element*/) override {}
  void text(std::string_view /*text*/) override {}

  std::string sheet;
  bool from_1904 = false;
};

struct RelationsPart final : XmlListener {
  void begins(std::string_view element, const XmlAttributes& attributes) override {
    if (element == "Relationship") targets[std::string(attributes["Id"])] = attributes["Target"];
  }
  void ends(std::string_view /*element*/) override {}
  void text(std::string_view /*text*/) override {}

  std::map<std::string, std::string> targets;
};

/// Texts may come in pieces of different looks; how a text is pronounced is none of it.
struct SharedTextsPart final : XmlListener {
  explicit SharedTextsPart(std::vector<std::string>& all) : texts(all) {}

  void begins(std::string_view element, const XmlAttributes& /*attributes*/) override {
    if (element == "si") texts.emplace_back();
    if (element == "rPh") spoken = true;
    in_text = element == "t" && !spoken;
  }
  void ends(std::string_view element) override {
    if (element == "rPh") spoken = false;
    in_text = false;
  }
  void text(std::string_view text) override {
    if (in_text && !texts.empty()) texts.back().append(text);
  }

  std::vector<std::string>& texts;
  bool spoken = false;
  bool in_text = false;
};

int numberOf(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

/// Formats that every workbook has without naming them.
bool isDateFormatNumber(int number) {
  return (number >= 14 && number <= 17) || number == 22 || (number >= 27 && number <= 31) ||
         number == 36 || (number >= 50 && number <= 54) || number == 57 || number == 58;
}

struct StylesPart final : XmlListener {
  explicit StylesPart(std::vector<bool>& dates) : is_date(dates) {}

  void begins(std::string_view element, const XmlAttributes& attributes) override {
    const int number = numberOf(attributes["numFmtId"]);
    if (element == "numFmt") named[number] = isDateFormat(attributes["formatCode"]);
    if (element == "cellXfs") in_cells = true;
    if (element != "xf" || !in_cells) return;
    const auto known = named.find(number);
    is_date.push_back(known == named.end() ? isDateFormatNumber(number) : known->second);
  }
  void ends(std::string_view element) override {
    if (element == "cellXfs") in_cells = false;
  }
  void text(std::string_view /*text*/) override {}

  std::vector<bool>& is_date;
  std::map<int, bool> named;
  bool in_cells = false;
};

/// Whether there is such a part and it could be read.
bool readPart(const ZipParts& parts, const std::string& name, XmlListener& listener) {
  const auto xml = parts.part(name);
  return xml && readXml(*xml, listener);
}

/// Targets are relative to the workbook's folder, or begin at the top.
std::string partNamed(const std::string& target) {
  return target.starts_with('/') ? target.substr(1) : "xl/" + target;
}

/// Sheets leave off what is empty at a row's end.
void makeRowsEqual(FileTable& table) {
  std::size_t width = 0;
  for (const FileRow& row : table.rows) width = std::max(width, row.cells.size());
  for (FileRow& row : table.rows) row.cells.resize(width);
}

}  // namespace

std::variant<FileTable, std::string> tableOfWorkbook(const std::string& path,
                                                     std::size_t most_rows) {
  const ZipParts parts(path);
  WorkbookPart workbook;
  RelationsPart relations;
  if (!readPart(parts, "xl/workbook.xml", workbook) ||
      !readPart(parts, "xl/_rels/workbook.xml.rels", relations)) {
    return not_readable;
  }
  WorkbookTexts texts;
  texts.from_1904 = workbook.from_1904;
  SharedTextsPart shared(texts.shared);
  StylesPart styles(texts.is_date);
  // Neither needs to be there.
  readPart(parts, "xl/sharedStrings.xml", shared);
  readPart(parts, "xl/styles.xml", styles);
  FileTable table;
  SheetReading sheet(texts, most_rows, table);
  if (!readPart(parts, partNamed(relations.targets[workbook.sheet]), sheet)) return not_readable;
  makeRowsEqual(table);
  return table;
}

}  // namespace depcalc
