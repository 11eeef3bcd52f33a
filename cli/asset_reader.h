// The assets of a CSV file, one after the other.
#pragma once

#include <span>
#include <vector>

#include "cli/asset_header.h"
#include "importing/asset_row.h"
#include "importing/csv_reader.h"

namespace depcalc {

/// Reads a header row and then assets, in memory that does not grow with the file. A row that is
/// broken or breaks a rule gives problems, and the next one is read as usual.
class AssetReader {
 public:
  enum class Outcome {
    asset,       ///< the record was filled
    problems,    ///< `problems()` has at least one
    end,         ///< nothing is left
    unreadable,  ///< the source failed
  };

  /// `source` must outlive the reader.
  AssetReader(ByteSource& source, HeaderRules header_rules, const AssetRules& rules,
              const CsvForm& form = {});

  /// Reads on in a text at the beginning of `line`, by the columns that its header row named.
  AssetReader(ByteSource& source, const AssetColumns& columns, const AssetRules& rules,
              const CsvForm& form, std::size_t line);

  /// Reads the header row. False when it cannot be used: `problems()` say why, unless the source
  /// failed. Comes first; nothing can be read after a failure.
  bool begin();

  /// Reads the next row into `asset`, every property that a row determines.
  Outcome next(CalculateDep& asset);

  /// The columns of the header row, and what was read behind it.
  [[nodiscard]] const AssetColumns& columns() const { return columns_; }
  [[nodiscard]] CsvReader::Rest rest() const { return csv_.rest(); }

  /// Where the row that was read last begins.
  [[nodiscard]] std::size_t line() const { return line_; }

  /// What was wrong with the row, in the order of the entry form.
  [[nodiscard]] const std::vector<RowProblem>& problems() const { return problems_; }

 private:
  void addCsvProblem();
  void addWidthProblem();
  void addForeignProblem();

  CsvReader csv_;
  char separator_;
  HeaderRules header_rules_;
  AssetRules rules_;
  AssetColumns columns_;
  std::size_t line_ = 1;
  std::vector<RowProblem> problems_;
};

}  // namespace depcalc
