// One row of an asset file and the asset it describes.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "engine/calculate_dep.h"
#include "entry/field_rules.h"
#include "importing/asset_columns.h"
#include "importing/row_problem.h"

namespace depcalc {

/// What the rules of a row depend on besides the row.
struct AssetRules {
  Date today;
  DateLimit date_limit = DateLimit::fifty_years;
  bool raw_texts = false;  ///< texts are as they stand, an apostrophe before a formula included
  /// Takes whatever the calculator can have saved: text of any length, and for an asset without
  /// a method a life and a basis of 0.
  bool as_saved = false;
  /// A comma in a number may be meant for a decimal point, as where it separates no fields: it is
  /// taken between thousands only.
  bool decimal_commas = false;
  Date fiscal_year_end;  ///< of the assets that name none; only month and day count
};

/// What `list` writes and a spreadsheet may make of it: a date as it stands, or "MM-DD", 02-29
/// included, as a date of which month and day count.
std::optional<Date> fiscalYearEndFromFile(std::string_view text);

/// "MM-DD", 02-29 included, as a date whose month and day count.
std::optional<Date> fiscalYearEndFromText(std::string_view text);

/// "YYYY-MM-DD" or "mm/dd/yyyy"; leading zeros may be left out in the second.
bool looksLikeFileDate(std::string_view text);

/// Puts the row into the properties of `asset`, each through the rule that the entry form has
/// for it. Every field that breaks its rule is a problem added to `problems`, in the form's
/// words; the asset is then filled in part. Columns that the file does not have and empty fields
/// take their defaults: Full Year, no salvage value, no capacity.
void readAssetRow(const AssetColumns& columns, std::span<const CsvField> row,
                  const AssetRules& rules, CalculateDep& asset, std::vector<RowProblem>& problems);

}  // namespace depcalc
