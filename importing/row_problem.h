// What is wrong with a row of a file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace depcalc {

struct RowProblem {
  std::size_t line = 1;
  std::string column;  ///< the column's name, or "column 14" where the text is broken
  std::string message;
  std::optional<std::string> value;  ///< what stands there
};

/// "assets.csv:3: life: Please enter a number less than or equal to 50. (found "60")"
std::string problemText(std::string_view file, const RowProblem& problem);

}  // namespace depcalc
