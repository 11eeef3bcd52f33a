// The assets of a file on their way into a register, as their user sees and corrects them.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "importing/asset_saving.h"
#include "importing/import_rows.h"
#include "importing/import_settings.h"

namespace depcalc {

/// What is known of the company beforehand.
struct ImportingCompany {
  Date today;
  Date fiscal_year_end;
  std::size_t assets = 0;  ///< in the register
};

class AssetImport {
 public:
  /// What was remembered for a header: the uses of its columns; nothing where nothing was.
  using Recall =
      std::function<std::optional<std::vector<ColumnUse>>(const std::vector<std::string>& header)>;

  /// Finds out encoding and separator at once; `goOn` does the rest. `duplicates` knows the
  /// register.
  AssetImport(std::string bytes, const ImportingCompany& company, Duplicates duplicates,
              Recall recall);
  /// More rows than the register can ever hold, with some before the header, are only counted.
  static constexpr std::size_t most_rows = most_assets + 100;

  /// The same for a table that is one already; it has neither encoding nor separator.
  AssetImport(FileTable table, const ImportingCompany& company, Duplicates duplicates,
              Recall recall);
  AssetImport(const AssetImport&) = delete;
  AssetImport& operator=(const AssetImport&) = delete;

  /// Reads or judges up to `rows` rows. Returns whether there is more to do.
  bool goOn(std::size_t rows);
  /// Until then there are no columns and no rows.
  [[nodiscard]] bool isReading() const { return stage_ == Stage::reading; }
  [[nodiscard]] bool isDone() const { return stage_ == Stage::done; }
  /// From 0 to 1.
  [[nodiscard]] double done() const;

  // --- How the file is read. Every change has the rows judged anew, by `goOn`.
  [[nodiscard]] const ImportSettings& settings() const { return settings_; }
  [[nodiscard]] bool isText() const { return is_text_; }
  /// Characters that the encoding does not have.
  [[nodiscard]] std::size_t unreadableCharacters() const { return text_.unreadable; }
  /// What the user has yet to decide.
  [[nodiscard]] const OpenQuestions& questions() const { return questions_; }
  [[nodiscard]] const std::vector<std::string>& header() const { return header_; }
  void setEncoding(Encoding encoding);
  void setSeparator(char separator);
  void setHeaderRow(std::size_t row);
  void setDecimal(DecimalSign sign);
  void setDates(DateOrder order);
  /// Takes the property away from the column that had it.
  void setUse(std::size_t column, const ColumnUse& use);
  void setMethod(std::string_view code);
  void setConvention(std::string_view digit);

  // --- The rows behind the header.
  [[nodiscard]] std::size_t rowCount() const { return rows_.size(); }
  [[nodiscard]] const ImportRow& row(std::size_t index) const { return rows_[index]; }
  [[nodiscard]] const FileRow& fileRow(std::size_t index) const {
    return table_.rows[index + settings_.header_row];
  }
  [[nodiscard]] RowStatus statusOf(std::size_t index) const { return rows_.statusOf(index); }
  [[nodiscard]] std::string_view text(std::size_t index, AssetColumn column) const;
  /// The columns that the file has, the required ones and those the user has put something into.
  [[nodiscard]] std::vector<AssetColumn> columns() const;
  [[nodiscard]] bool hasColumn(AssetColumn column) const { return judge_.hasColumn(column); }
  [[nodiscard]] bool hasAmounts() const { return judge_.hasAmounts(); }
  [[nodiscard]] std::vector<ComparedAmount> amountsOf(std::size_t index) const;
  void edit(std::size_t index, AssetColumn column, std::string text);
  /// The user's decision about a row: a duplicate that is taken is ready.
  void take(std::size_t index, bool taken);
  [[nodiscard]] bool leavesOutDuplicates() const { return rows_.leavesOutDuplicates(); }
  void leaveOutDuplicates(bool leave_out);
  [[nodiscard]] std::vector<std::uint32_t> inOrder(RowFilter filter) const {
    return rows_.inOrder(filter);
  }

  [[nodiscard]] const ImportCounts& counts() const { return counts_; }
  /// The same as a text (import_summary.h).
  [[nodiscard]] std::string summary() const;
  /// What keeps the import from being done, and the way on; nothing where it can be.
  [[nodiscard]] std::optional<std::string> obstacle() const;
  /// The assets that are ready, in the file's order. It must be done.
  [[nodiscard]] std::vector<CalculateDepPtr> assets() const;

 private:
  enum class Stage { reading, judging, done };

  void readAnew();
  void takeTable();
  void findForms();
  void judgeAnew();
  void judgeRow(std::size_t index);
  void settle();
  [[nodiscard]] std::optional<AssetColumn> missingColumn() const;

  std::string bytes_;
  bool is_text_ = true;
  ImportingCompany company_;
  Recall recall_;
  DecodedText text_;
  std::optional<TableReading> reading_;
  FileTable table_;
  ImportSettings settings_;
  OpenQuestions questions_;
  std::optional<DecimalSign> chosen_decimal_;
  std::optional<DateOrder> chosen_dates_;
  std::vector<std::string> header_;
  RowJudge judge_;
  ImportRows rows_;
  Stage stage_ = Stage::reading;
  std::size_t judged_ = 0;
  ImportCounts counts_;
};

}  // namespace depcalc
