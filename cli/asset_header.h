// The header row of an asset file.
#pragma once

#include <span>
#include <vector>

#include "importing/asset_columns.h"
#include "importing/row_problem.h"

namespace depcalc {

/// What a header may hold.
struct HeaderRules {
  bool ignore_unknown = false;
  /// What is entered of an asset once it has been calculated is known, too: `method` and the
  /// columns behind it.
  bool with_method = false;
};

/// Reads the header row: names in any order and any case. A name that is unknown or appears
/// twice and a required name that is missing (placed_in_service, life, basis) are problems.
AssetColumns columnsOfHeader(std::span<const CsvField> header, HeaderRules rules,
                             std::vector<RowProblem>& problems);

}  // namespace depcalc
