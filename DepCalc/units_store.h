// The units produced by assets, in the company file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/units_produced.h"
#include "host/host.h"
#include "host/units_table.h"

namespace depcalc {

/// The units entered for one asset; a year without an entry is missing.
struct UnitsEntry {
  std::int32_t number = 0;  ///< of the asset, from 1
  std::string id;           ///< which the asset had then
  UnitsByYear units;
  /// Asset `number` is there and is the one that they were entered for.
  bool known = false;
};

/// The host's own data table: record n has the units of asset n, a value "FY" and the year for
/// each, and beside them what the asset is known again by: ID, name, serial number, date placed in
/// service and basis, as they are saved. An asset without units has no record. Numbers are those of
/// the register, from 1.
///
/// Changes are several host calls and belong into a unit of work. Errors of the host reach the
/// caller; reading makes nothing.
class UnitsStore {
 public:
  /// `file` may be any host's.
  explicit UnitsStore(std::shared_ptr<HostCompanyFile> file) : file_(std::move(file)) {}

  /// The numbers that have an entry, in their order; they may lie beyond the register.
  [[nodiscard]] std::vector<std::int32_t> numbers() const;
  [[nodiscard]] bool has(std::int32_t number) const;
  [[nodiscard]] std::optional<UnitsEntry> entry(std::int32_t number) const;
  /// The units that count for asset `number`: those of its entry where it is known again.
  [[nodiscard]] UnitsByYear unitsOf(std::int32_t number) const;

  /// Takes the place of all units of asset `number`, which is in the register. Without any the
  /// entry goes.
  void put(std::int32_t number, const UnitsByYear& units);
  /// Asset `number` was deleted: its entry goes, those behind it move up by one.
  void assetDeleted(std::int32_t number);

  /// What asset `number` is known by, in the order of the entry's values. Not there: none.
  using Marks = std::vector<StoredValue>;
  [[nodiscard]] Marks marksOfAsset(std::int32_t number) const;
  /// Asset `number` was known by `before` and may be known by something else now. An entry that
  /// was another asset's stays so.
  void assetSaved(std::int32_t number, const Marks& before);

 private:
  [[nodiscard]] std::shared_ptr<HostTable> units() const;

  std::shared_ptr<HostCompanyFile> file_;
};

}  // namespace depcalc
