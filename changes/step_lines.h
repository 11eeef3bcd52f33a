// What a step changed, value by value, as users read it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/history/step_changes.h"

namespace depcalc {

/// A value before and after; "" where there was none.
struct StepLine {
  std::string about;  ///< the asset's ID, else its name or number; "Company" for the company's own
  std::string field;  ///< as the register names it
  std::string before;
  std::string after;

  friend bool operator==(const StepLine&, const StepLine&) = default;
};

struct StepLines {
  std::vector<StepLine> lines;
  /// Records that have more to show, where there would be too many lines.
  std::size_t left_out = 0;
};

/// In the order of the register. That an asset behind a deleted one has another number now, and
/// amounts beyond an asset's schedule, are no lines.
StepLines stepLines(const StepChanges& changes, std::size_t most_lines = 20'000);

}  // namespace depcalc
