#include "changes/company_steps.h"

#include <algorithm>
#include <utility>

#include "DepCalc/asset_store.h"
#include "host/stored/record_text.h"
#include "host/units_table.h"

namespace depcalc {
namespace {

using Changes = std::vector<const RecordChange*>;

std::int16_t indexOf(const RecordChange& change) { return change.from ? *change.from : *change.to; }

/// The changes of a table that are no summary's, and no mere moving up behind one that went.
Changes changesIn(const StepChanges& changes, std::size_t table) {
  Changes found;
  for (const RecordChange& change : changes.records) {
    if (change.table == table && indexOf(change) > 0) found.push_back(&change);
  }
  const bool any_went = std::any_of(found.begin(), found.end(),
                                    [](const RecordChange* change) { return !change->to; });
  if (any_went) std::erase_if(found, [](const RecordChange* change) { return change->to; });
  return found;
}

StepKind kindShown(const StepChanges& changes, const Changes& assets) {
  if (assets.empty()) return changes.records.empty() ? StepKind::company : StepKind::units;
  if (!assets.front()->to) return StepKind::deleted;
  if (assets.size() == 1) return StepKind::saved;
  const bool all_new = std::all_of(assets.begin(), assets.end(),
                                   [](const RecordChange* change) { return !change->from; });
  return all_new ? StepKind::imported : StepKind::changed;
}

}  // namespace

std::vector<FollowedTable> followedTables() {
  return {{std::string(asset_table_name), true}, {std::string(units_table_name), false}};
}

std::string nameOfRecord(const RecordChange& change) {
  const RecordValues values = recordOfText(change.from ? change.before : change.after);
  for (const std::string_view name : {"AID", "AName"}) {
    const StoredValue* const value = values.find(name);
    if (value != nullptr && !value->asText().empty()) return value->asText();
  }
  return "#" + std::to_string(indexOf(change));
}

StepTitle stepTitle(const StepChanges& changes, std::optional<StepKind> said) {
  const Changes assets = changesIn(changes, followed_assets);
  const Changes units = changesIn(changes, followed_units);
  const Changes& named = assets.empty() ? units : assets;
  StepTitle title{
      said.value_or(kindShown(changes, assets)), {}, static_cast<std::int32_t>(named.size())};
  const bool of_one = named.size() == 1 && title.kind != StepKind::restored;
  if (of_one) title.subject = nameOfRecord(*named.front());
  return title;
}

std::optional<int> assetOfStep(const StepChanges& changes, bool undone) {
  const Changes assets = changesIn(changes, followed_assets);
  const Changes units = changesIn(changes, followed_units);
  const Changes& named = assets.empty() ? units : assets;
  if (named.size() != 1) return std::nullopt;
  const auto& place = undone ? named.front()->from : named.front()->to;
  return place ? std::optional<int>(*place) : std::nullopt;
}

}  // namespace depcalc
