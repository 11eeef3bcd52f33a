// The rows of a sheet out of a workbook's parts.
#pragma once

#include <string>
#include <vector>

#include "importing/file_table.h"
#include "importing/workbook/xml_events.h"

namespace depcalc {

/// What the cells of a sheet refer to.
struct WorkbookTexts {
  std::vector<std::string> shared;  ///< texts that cells have by number
  std::vector<bool> is_date;        ///< by the number of a cell's style
  bool from_1904 = false;           ///< days are counted from 1904 instead of 1900
};

/// Whether a number format shows a day: "d. mmmm yyyy" does, "0.00" and "hh:mm" do not.
bool isDateFormat(std::string_view code);

/// A day as a sheet counts it, as YYYY-MM-DD; "" where it is none.
std::string sheetDate(double days, bool from_1904);

/// Hears the sheet and fills a table: numbers with a decimal point, dates as YYYY-MM-DD, texts as
/// they stand. Empty rows are left out, and of the others the first `most_rows` are kept.
class SheetReading final : public XmlListener {
 public:
  SheetReading(const WorkbookTexts& texts, std::size_t most_rows, FileTable& table)
      : texts_(texts), most_rows_(most_rows), table_(table) {}

  void begins(std::string_view element, const XmlAttributes& attributes) override;
  void ends(std::string_view element) override;
  void text(std::string_view text) override;

 private:
  void beginCell(const XmlAttributes& attributes);
  void endCell();
  void endRow();
  [[nodiscard]] std::string cellText() const;

  const WorkbookTexts& texts_;
  std::size_t most_rows_;
  FileTable& table_;
  FileRow row_;
  std::size_t column_ = 0;  ///< of the cell, from 0
  std::string type_;
  std::size_t style_ = 0;
  bool in_value_ = false;
  std::string value_;
};

}  // namespace depcalc
