// The assets of a file, for the register.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/asset_reader.h"
#include "cli/company.h"
#include "importing/duplicates.h"

namespace depcalc {

/// Bad rows whose problems are told; how many more there are is told in one line.
inline constexpr std::size_t most_reported_rows = 200;

/// All that was read of an asset file.
struct ImportedRows {
  std::vector<CalculateDepPtr> assets;  ///< no more than the register can hold
  std::size_t good_rows = 0;
  std::size_t bad_rows = 0;
  std::size_t duplicate_rows = 0;  ///< of the bad ones
  bool bad_header = false;
  std::vector<std::size_t> distant_lines;  ///< where a date lies more than 50 years from today
};

/// Reads every row. `duplicates`, where there is one, looks at each, good or bad. The problems of
/// the header and of the first bad rows go to `report`. A source that fails ends the reading.
ImportedRows readRows(AssetReader& reader, Date today, Duplicates* duplicates,
                      const std::function<void(const RowProblem&)>& report);

}  // namespace depcalc
