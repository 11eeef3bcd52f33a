// Units produced, for hosts that let their users enter them: what may be entered, what it comes to,
// and how it is saved.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "changes/disposing.h"

namespace depcalc {

/// Units from 0 to 999,999,999,999, as their 15 digits say them.
OrRefusal<double> unitsFrom(std::string_view text);

/// Why no units are entered for `asset`: it is depreciated by something else. Nothing where they
/// are.
std::optional<std::string> refusedUnits(const SavedAsset& asset);

/// Why none are entered for fiscal year `year` of `asset`. Nothing where they are.
std::optional<std::string> refusedUnitsYear(const SavedAsset& asset, int year);

/// The fiscal year of `asset` that `day` falls in.
int fiscalYearOf(const SavedAsset& asset, Date day);

/// Why units cannot be added to those that asset `number` has: they were another asset's. Nothing
/// where they can; taking all of them away is always possible.
std::optional<std::string> foreignUnits(CompanyAssets& assets, std::int32_t number);

/// A fiscal year of an asset by units of production.
struct UnitsRow {
  int year = 0;
  std::optional<double> units;  ///< none entered
  Currency amount;
  double left = 0;  ///< of the production capacity, after this year; below 0 more than it
};

/// The asset's fiscal years from its first to the end of its useful life, `through` and the last
/// with units, with `units` for its own.
std::vector<UnitsRow> unitsRows(const SavedAsset& asset, const UnitsByYear& units, int through);

/// Saves `units` in the place of all that asset `number` has. All or nothing; answers what was
/// reported.
std::optional<std::string> saveUnits(CompanyAssets& assets, std::int32_t number,
                                     const UnitsByYear& units);

}  // namespace depcalc
