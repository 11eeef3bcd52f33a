#include "reports/formats/xlsx/xlsx.h"

#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "reports/formats/xlsx/c_numbers.h"
#include "reports/formats/xlsx/xlsx_text.h"
#include "values/text.h"

namespace depcalc {
namespace {

constexpr double widest_column = 60;
constexpr std::size_t frozen_columns = 3;
constexpr std::size_t columns_on_a_page = 16;
/// 1 March 1900; spreadsheets have a 29 February before it.
constexpr std::int32_t first_common_day = 61;

/// Where temporary files go, as the environment says where it makes sense.
std::string temporaryFolder() {
  std::error_code none;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(none);
  return folder.empty() ? "/tmp" : folder.string();
}

/// An empty file of its own that goes with it.
class TemporaryFile {
 public:
  TemporaryFile() : path_(temporaryFolder() + "/depcalc-" + std::string(6, 'X')) {
    descriptor_ = ::mkstemp(path_.data());
  }
  ~TemporaryFile() {
    if (descriptor_ < 0) return;
    ::close(descriptor_);
    ::unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  [[nodiscard]] bool isThere() const { return descriptor_ >= 0; }
  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] std::string content() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string path_;
  int descriptor_;
};

struct Formats {
  explicit Formats(lxw_workbook* workbook) : book(workbook) {
    title = make(false);
    format_set_font_size(title, 14);
    format_set_bold(title);
    caption = make(true);
    format_set_text_wrap(caption);
    format_set_bottom(caption, LXW_BORDER_THIN);
    caption_right = make(true);
    format_set_text_wrap(caption_right);
    format_set_bottom(caption_right, LXW_BORDER_THIN);
    format_set_align(caption_right, LXW_ALIGN_RIGHT);
    bold = make(true);
    amount = numbers(false, "#,##0.00##");
    amount_sum = numbers(true, "#,##0.00##");
    format_set_top(amount_sum, LXW_BORDER_THIN);
    date = numbers(false, "mm/dd/yyyy");
    format_set_align(date, LXW_ALIGN_LEFT);
  }

  lxw_workbook* book;
  lxw_format *title, *caption, *caption_right, *bold, *amount, *amount_sum, *date;

 private:
  lxw_format* make(bool is_bold) {
    lxw_format* const format = workbook_add_format(book);
    if (is_bold) format_set_bold(format);
    return format;
  }
  lxw_format* numbers(bool is_bold, const char* pattern) {
    lxw_format* const format = make(is_bold);
    format_set_num_format(format, pattern);
    return format;
  }
};

/// Writes a table to its sheet, row by row from the top: the library keeps no more than one.
class Sheet {
 public:
  Sheet(const Report& report, const Table& table, lxw_worksheet* sheet, const Formats& formats)
      : report_(report), table_(table), sheet_(sheet), formats_(formats) {}

  void write() {
    setUp();
    text(0, report_.title, formats_.title);
    ++row_;
    text(0, report_.covers);
    row_ = caption_row;
    writeCaptions();
    if (table_.groups().empty()) writeAllRows();
    for (const RowGroup& group : table_.groups()) writeGroup(group);
    if (!table_.total().empty()) writeSums(table_.totalLabel(), table_.total(), caption_row + 1);
    ++row_;
    for (const std::string& note : report_.notes) remark(note);
    for (const std::string& proof : report_.proofs) remark("Proof: " + proof);
  }

  [[nodiscard]] lxw_error error() const { return error_; }

 private:
  static constexpr lxw_row_t caption_row = 3;

  void check(lxw_error error) {
    if (error_ == LXW_NO_ERROR) error_ = error;
  }

  void setUp() {
    const std::size_t width = table_.columns().size();
    const auto frozen =
        static_cast<lxw_col_t>(std::min({frozen_columns, labelWidth(table_, all()), width - 1}));
    worksheet_freeze_panes(sheet_, caption_row + 1, frozen);
    worksheet_repeat_rows(sheet_, caption_row, caption_row);
    if (width > columns_on_a_page) {
      worksheet_repeat_columns(sheet_, 0, static_cast<lxw_col_t>(std::max(1, frozen - 1)));
    } else {
      worksheet_fit_to_pages(sheet_, 1, 0);
    }
    worksheet_set_landscape(sheet_);
    worksheet_set_footer(sheet_, "&RPage &P of &N");
    for (std::size_t i = 0; i < width; ++i) {
      const auto column = static_cast<lxw_col_t>(i);
      worksheet_set_column(sheet_, column, column, columnWidth(i), nullptr);
    }
  }

  [[nodiscard]] std::vector<std::size_t> all() const {
    std::vector<std::size_t> columns(table_.columns().size());
    for (std::size_t i = 0; i < columns.size(); ++i) columns[i] = i;
    return columns;
  }

  /// In characters. Captions wrap.
  [[nodiscard]] double columnWidth(std::size_t i) const {
    const Column& column = table_.columns()[i];
    std::size_t width = std::min<std::size_t>(characterCount(column.caption), 12);
    const auto widen = [&](const Cell& cell) {
      width = std::max(width, characterCount(shownText(cell, column)));
    };
    for (std::size_t row = 0; row < table_.rowCount(); ++row) widen(table_.row(row)[i]);
    for (const RowGroup& group : table_.groups()) widen(group.total[i]);
    if (!table_.total().empty()) widen(table_.total()[i]);
    return std::min(static_cast<double>(width) + 2, widest_column);
  }

  void writeCaptions() {
    for (std::size_t i = 0; i < table_.columns().size(); ++i) {
      const Column& column = table_.columns()[i];
      text(i, column.caption, standsRight(column.kind) ? formats_.caption_right : formats_.caption);
    }
    ++row_;
  }

  void writeAllRows() {
    for (std::size_t i = 0; i < table_.rowCount(); ++i) writeRow(table_.row(i));
  }

  void writeGroup(const RowGroup& group) {
    text(0, group.name, formats_.bold);
    ++row_;
    const lxw_row_t first = row_;
    for (const std::size_t row : group.rows) writeRow(table_.row(row));
    writeSums(group.label, group.total, first);
  }

  void writeRow(std::span<const Cell> cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) writeCell(i, cells[i]);
    ++row_;
  }

  void writeCell(std::size_t column, const Cell& cell) {
    if (const auto* amount = std::get_if<Currency>(&cell)) {
      number(column, amount->toDouble(), formats_.amount);
    } else if (const auto* whole = std::get_if<std::int32_t>(&cell)) {
      number(column, *whole, nullptr);
    } else if (const auto* real = std::get_if<double>(&cell)) {
      number(column, *real, nullptr);
    } else if (const auto* date = std::get_if<Date>(&cell);
               date != nullptr && date->dayNumber() >= first_common_day) {
      number(column, date->dayNumber(), formats_.date);
    } else {
      text(column, dataText(cell));
    }
  }

  /// Sums from row `first` to the one above; a subtotal among them is not counted twice. Without
  /// rows there is nothing to sum up, and the values stand alone.
  void writeSums(const std::string& label, const std::vector<Cell>& sums, lxw_row_t first) {
    text(0, label, formats_.bold);
    for (std::size_t i = 0; i < sums.size(); ++i) {
      const auto* sum = std::get_if<Currency>(&sums[i]);
      if (sum == nullptr) continue;
      const auto column = static_cast<lxw_col_t>(i);
      if (first == row_) {
        number(i, sum->toDouble(), formats_.amount_sum);
        continue;
      }
      char range[LXW_MAX_CELL_RANGE_LENGTH];
      lxw_rowcol_to_range(&range[0], first, column, row_ - 1, column);
      const std::string formula = "=SUBTOTAL(9," + std::string(&range[0]) + ")";
      check(worksheet_write_formula_num(sheet_, row_, column, formula.c_str(), formats_.amount_sum,
                                        sum->toDouble()));
    }
    ++row_;
  }

  void remark(const std::string& remark) {
    text(0, remark);
    ++row_;
  }

  void text(std::size_t column, std::string_view text, lxw_format* format = nullptr) {
    if (text.empty()) return;
    check(worksheet_write_string(sheet_, row_, static_cast<lxw_col_t>(column),
                                 xlsxText(text).c_str(), format));
  }

  void number(std::size_t column, double value, lxw_format* format) {
    check(worksheet_write_number(sheet_, row_, static_cast<lxw_col_t>(column), value, format));
  }

  const Report& report_;
  const Table& table_;
  lxw_worksheet* sheet_;
  const Formats& formats_;
  lxw_row_t row_ = 0;
  lxw_error error_ = LXW_NO_ERROR;
};

/// What stands before the first comma, which is short and has no name of a user's in it.
std::string sheetName(const Report& report, const Table& table) {
  const std::string& name = table.caption().empty() ? report.title : table.caption();
  return name.substr(0, name.find(','));
}

lxw_error writeWorkbook(const Report& report, const std::string& path) {
  std::string folder = temporaryFolder();
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  options.tmpdir = folder.data();
  lxw_workbook* const book = workbook_new_opt(path.c_str(), &options);
  if (book == nullptr) return LXW_ERROR_MEMORY_MALLOC_FAILED;
  const Formats formats(book);
  lxw_error error = LXW_NO_ERROR;
  for (const Table& table : report.tables) {
    lxw_worksheet* const sheet = workbook_add_worksheet(book, sheetName(report, table).c_str());
    if (sheet == nullptr) {
      error = LXW_ERROR_CREATING_TMPFILE;
      break;
    }
    Sheet writer(report, table, sheet, formats);
    writer.write();
    if (error == LXW_NO_ERROR) error = writer.error();
  }
  const lxw_error closed = workbook_close(book);
  return error == LXW_NO_ERROR ? closed : error;
}

}  // namespace

std::string xlsxReport(const Report& report, std::string& trouble) {
  const CNumbers c_numbers;
  const TemporaryFile file;
  if (!file.isThere()) {
    trouble = "a temporary file cannot be made: " + std::generic_category().message(errno);
    return {};
  }
  if (const lxw_error error = writeWorkbook(report, file.path()); error != LXW_NO_ERROR) {
    trouble = lxw_strerror(error);
    return {};
  }
  return file.content();
}

}  // namespace depcalc
