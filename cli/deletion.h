// The register's deletion of an asset.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "cli/company.h"

namespace depcalc {

/// Deletes asset `number`, counted from 1 and there, as the register does: with its array of all
/// assets, the deleted one taken out; its units go and the others' stay with their assets. All or
/// nothing; answers what was reported.
std::optional<std::string> deleteAsset(Company& company, std::int32_t number);

}  // namespace depcalc
