// The steps of a company of assets: which tables are followed, and what a step is called.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/history/content.h"
#include "host/history/step.h"
#include "host/history/step_changes.h"

namespace depcalc {

/// The places of the followed tables.
inline constexpr std::size_t followed_assets = 0;
inline constexpr std::size_t followed_units = 1;

/// Assets, and units produced by them.
std::vector<FollowedTable> followedTables();

/// What a step that changed this is: of the kind that whoever did it `said`, else of the one that
/// the changes show. One asset is named by its ID, else by its name, else by its number.
StepTitle stepTitle(const StepChanges& changes, std::optional<StepKind> said);

/// What users know a record by: the asset's ID, else its name, else its number.
std::string nameOfRecord(const RecordChange& change);

/// The number of the asset that a step was about, as it is now where the step was done, or was
/// before where it is `undone`; nothing where it was about none or many, or that is not there.
std::optional<int> assetOfStep(const StepChanges& changes, bool undone);

}  // namespace depcalc
