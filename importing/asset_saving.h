// Assets from elsewhere into the register.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "DepCalc/company_assets.h"

namespace depcalc {

/// The register's capacity: its indices are 16-bit numbers, and 0 is the summary's.
inline constexpr std::int32_t most_assets = INT16_MAX;

/// Saves `assets` through the store, one by one, behind those of the register: all of them or,
/// where something is reported, none. Without `keep` everything is undone in the end. `reached`
/// hears how many are saved. Answers what was reported.
std::optional<std::string> saveAssets(CompanyAssets& company,
                                      const std::vector<CalculateDepPtr>& assets, bool keep,
                                      const std::function<void(std::size_t)>& reached);

}  // namespace depcalc
