// A row of any file before the form's own rules.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "importing/asset_row.h"
#include "importing/import_settings.h"

namespace depcalc {

/// What the user has put into the place of a row's texts.
using RowEdits = std::map<AssetColumn, std::string>;

/// What is wrong with a row.
struct RowFinding {
  std::optional<AssetColumn> column;  ///< nothing where it is the row itself
  std::string message;

  friend bool operator==(const RowFinding&, const RowFinding&) = default;
};

/// The file's own amount of a fiscal year beside ours.
struct ComparedAmount {
  int year = 0;
  std::string in_file;               ///< as it stands there
  std::optional<Currency> expected;  ///< the same in cents; nothing where it is no amount
  Currency calculated;

  [[nodiscard]] bool differs() const { return expected != calculated; }
};

/// Writes each text of a row as the entry form takes it, and has the form's rules judge that. Which
/// texts are good is for them to say: what is no number or no date the way this file writes them
/// comes to them as something that is none in any way.
class RowJudge {
 public:
  /// `settings` must outlive it, and a change of its columns asks for another judge.
  RowJudge(const ImportSettings& settings, const AssetRules& rules);

  /// The text of `column`: the user's, else the file's; "" where there is neither.
  [[nodiscard]] std::string_view textOf(const FileRow& row, const RowEdits& edits,
                                        AssetColumn column) const;
  /// The same as the form takes it.
  [[nodiscard]] std::string plainText(const FileRow& row, const RowEdits& edits,
                                      AssetColumn column) const;
  /// Whether the file has the column.
  [[nodiscard]] bool hasColumn(AssetColumn column) const { return placeOf(column).has_value(); }

  /// Fills `asset` and answers what is wrong with the row, in the form's words; the asset is then
  /// filled in part. A row that has more or fewer cells than the header counts as seen to once one
  /// of its texts is the user's.
  std::vector<RowFinding> judge(const FileRow& row, const RowEdits& edits,
                                CalculateDep& asset) const;

  /// Whether the file has amounts of its own.
  [[nodiscard]] bool hasAmounts() const { return has_amounts_; }
  /// The amounts of the row that are no empty cells, held against those of `asset`, which is good,
  /// up to the asset's disposal. None where nothing is calculated by a schedule.
  [[nodiscard]] std::vector<ComparedAmount> compare(const FileRow& row, CalculateDep& asset) const;

 private:
  [[nodiscard]] std::optional<std::size_t> placeOf(AssetColumn column) const {
    return places_[static_cast<std::size_t>(column)];
  }
  [[nodiscard]] std::string widthProblem(const FileRow& row) const;

  const ImportSettings* settings_;
  AssetRules rules_;
  AssetColumns columns_;
  std::array<std::optional<std::size_t>, asset_column_names.size()> places_;
  bool has_amounts_ = false;
};

}  // namespace depcalc
