// The columns of an asset file.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "cli/csv_reader.h"
#include "cli/row_problem.h"

namespace depcalc {

/// In the order in which problems of a row are reported: that of the entry form.
enum class AssetColumn : std::size_t {
  id,
  name,
  serial,
  department,
  placed_in_service,
  fiscal_year_end,
  life,
  convention,
  basis,
  salvage,
  capacity,
  method,
  disposed,
  proceeds,
};

inline constexpr std::array<std::string_view, 14> asset_column_names{
    "id",       "name",       "serial", "department", "placed_in_service", "fiscal_year_end",
    "life",     "convention", "basis",  "salvage",    "capacity",          "method",
    "disposed", "proceeds"};

constexpr std::string_view nameOf(AssetColumn column) {
  return asset_column_names[static_cast<std::size_t>(column)];
}

/// Whether any text may stand in it; the others hold numbers, dates and names of their own.
constexpr bool isTextColumn(AssetColumn column) { return column <= AssetColumn::department; }

/// What a header may hold.
struct HeaderRules {
  bool ignore_unknown = false;
  /// What is entered of an asset once it has been calculated is known, too: `method` and the
  /// columns behind it.
  bool with_method = false;
};

/// Where each column stands in the rows of one file.
class AssetColumns {
 public:
  /// Reads the header row: names in any order and any case. A name that is unknown or appears
  /// twice and a required name that is missing (placed_in_service, life, basis) are problems.
  static AssetColumns fromHeader(std::span<const CsvField> header, HeaderRules rules,
                                 std::vector<RowProblem>& problems);

  /// The field of `column` in `row`; nothing when the file has no such column. The row must
  /// have `width()` fields.
  [[nodiscard]] const CsvField* find(std::span<const CsvField> row, AssetColumn column) const {
    const auto& index = index_[static_cast<std::size_t>(column)];
    return index ? &row[*index] : nullptr;
  }

  [[nodiscard]] std::size_t width() const { return width_; }

 private:
  std::array<std::optional<std::size_t>, asset_column_names.size()> index_;
  std::size_t width_ = 0;
};

}  // namespace depcalc
