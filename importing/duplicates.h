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
  /// Knows none yet.
  Duplicates() = default;
  /// Reads the whole register.
  explicit Duplicates(CompanyAssets& company);

  /// What of a row in `line` of the file is there already, in the register or in a line before.
  [[nodiscard]] std::vector<RowProblem> problemsOf(const std::string& id, const std::string& serial,
                                                   std::size_t line) const;
  /// From now on `line` has these, unless another had them before.
  void add(const std::string& id, const std::string& serial, std::size_t line);
  /// From now on only the register has any.
  void forgetLines();

 private:
  /// A text and who had it first: an asset of the register, or a line.
  using Owners = std::unordered_map<std::string, std::size_t>;
  struct Known {
    Owners ids;
    Owners serials;
  };

  static void add(Known& known, const std::string& id, const std::string& serial,
                  std::size_t owner);

  Known register_;
  Known lines_;
};

}  // namespace depcalc
