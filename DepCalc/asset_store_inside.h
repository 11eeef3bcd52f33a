// What the sources of the asset store share.
#pragma once

#include <string>
#include <utility>

#include "DepCalc/asset_store.h"
#include "common/trapped.h"
#include "engine/method.h"
#include "host/unit_of_work.h"
#include "values/number_text.h"
#include "values/rounding.h"

namespace depcalc {

/// Gathers what happens in its life into one unit of work, where the host has them. However a
/// procedure ends, what it committed is kept; a unit that cannot be written is reported.
class AssetStore::UnitScope {
 public:
  UnitScope(const AssetStore& store, std::string_view procedure)
      : file_(store.state_.m_orvcf),
        unit_(file_ != nullptr ? file_->unitOfWork() : nullptr),
        procedure_(procedure) {
    if (unit_ != nullptr) unit_->begin();
  }
  ~UnitScope() {
    if (unit_ != nullptr) trapped(procedure_, [&] { unit_->end(); });
  }
  /// Ends the unit before its time; an error of writing reaches the caller.
  void end() {
    if (HostUnitOfWork* const unit = std::exchange(unit_, nullptr)) unit->end();
  }
  UnitScope(const UnitScope&) = delete;
  UnitScope& operator=(const UnitScope&) = delete;

 private:
  std::shared_ptr<HostCompanyFile> file_;
  HostUnitOfWork* unit_;
  std::string_view procedure_;
};

template <typename Body>
void AssetStore::procedure(std::string_view name, Body&& body) {
  const UnitScope unit(*this, name);
  trapped(name, std::forward<Body>(body));
}

/// Runs a change of the store's own; the summary stays current across it.
template <typename Change>
void AssetStore::change(Change&& change) {
  const bool current = summaryIsCurrent();
  std::forward<Change>(change)();
  if (current) summary_revision_ = state_.m_orvcf->unitOfWork()->revision();
}

/// A table index; out of 16 bits is error 6.
inline std::int16_t toIndex(std::int32_t index) {
  return toInteger16HalfEven(static_cast<double>(index));
}

/// Dates stored as dates mean the same tomorrow; texts may lack a year.
inline bool lastsBeyondToday(const StoredValue& a, const StoredValue& b) {
  return a.type() == StoredValue::Type::date && b.type() == StoredValue::Type::date;
}

}  // namespace depcalc
