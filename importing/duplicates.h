// Assets that are there already.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "DepCalc/company_assets.h"
#include "importing/row_problem.h"

namespace depcalc {

/// Knows the IDs and serial numbers of a register and of the rows of a file. Empty ones are none;
/// the others are compared as they stand.
class Duplicates {
 public:
  /// Reads the whole register.
  explicit Duplicates(CompanyAssets& company);

  /// What of the asset in `line` of the file is there already, in the register or in a line before;
  /// from now on the line is one of those.
  std::vector<RowProblem> problemsOf(const CalculateDep& asset, std::size_t line);

 private:
  /// A text and who had it first: "Asset 3 of the register", "Line 5".
  using Owners = std::unordered_map<std::string, std::string>;

  Owners ids_;
  Owners serials_;
};

}  // namespace depcalc
