// What the user of an import is told of it as a whole.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "importing/import_rows.h"
#include "importing/import_settings.h"

namespace depcalc {

/// "212 assets ready · 3 with problems · 2 duplicates left out".
[[nodiscard]] std::string summaryOf(const ImportCounts& counts);

/// A file whose rows have all been judged, on its way into a register.
struct JudgedFile {
  std::size_t rows = 0;
  std::size_t beyond = 0;  ///< rows that were not kept, for there are too many
  OpenQuestions questions;
  std::optional<AssetColumn> missing;  ///< the first required column that it does not have
  ImportCounts counts;
  std::size_t in_register = 0;  ///< assets
};

/// What keeps `file` from being imported, and the way on; nothing where it can be.
[[nodiscard]] std::optional<std::string> obstacleTo(const JudgedFile& file);

}  // namespace depcalc
