// The columns of an asset file.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "importing/csv_reader.h"

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

/// Without these an asset cannot be calculated.
inline constexpr std::array required_columns{AssetColumn::placed_in_service, AssetColumn::life,
                                             AssetColumn::basis};

constexpr std::string_view nameOf(AssetColumn column) {
  return asset_column_names[static_cast<std::size_t>(column)];
}

/// Whether any text may stand in it; the others hold numbers, dates and names of their own.
constexpr bool isTextColumn(AssetColumn column) { return column <= AssetColumn::department; }

/// Where each column stands in the rows of one file.
class AssetColumns {
 public:
  AssetColumns() = default;
  /// For rows of `width` fields, of which none is a column yet.
  explicit AssetColumns(std::size_t width) : width_(width) {}

  /// `column` stands in field `index`, below the width.
  void place(AssetColumn column, std::size_t index) {
    index_[static_cast<std::size_t>(column)] = index;
  }

  /// Where `column` stands; nothing when the rows do not have it.
  [[nodiscard]] std::optional<std::size_t> placeOf(AssetColumn column) const {
    return index_[static_cast<std::size_t>(column)];
  }

  /// The field of `column` in `row`; nothing when the rows have no such column. The row must
  /// have `width()` fields.
  [[nodiscard]] const CsvField* find(std::span<const CsvField> row, AssetColumn column) const {
    const auto index = placeOf(column);
    return index ? &row[*index] : nullptr;
  }

  [[nodiscard]] std::size_t width() const { return width_; }

 private:
  std::array<std::optional<std::size_t>, asset_column_names.size()> index_;
  std::size_t width_ = 0;
};

}  // namespace depcalc
