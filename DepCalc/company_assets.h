// The assets of an open company file for hosts that work on them without the screens.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "DepCalc/asset_store.h"
#include "DepCalc/units_store.h"
#include "host/host.h"

namespace depcalc {

/// An open company file with its assets.
class CompanyAssets {
 public:
  /// `file` may be any host's.
  CompanyAssets(std::shared_ptr<HostCompanyFile> file, Date today);
  CompanyAssets(const CompanyAssets&) = delete;
  CompanyAssets& operator=(const CompanyAssets&) = delete;

  [[nodiscard]] HostCompanyFile& file() const { return *state_.m_orvcf; }
  [[nodiscard]] Date today() const { return today_; }
  /// The last day of the company's fiscal year.
  [[nodiscard]] Date fiscalYearEnd() const { return file().FiscalYearStart().plusDays(-1); }

  /// The store has its table's name; `open` it before saving.
  AssetStore& store() { return store_; }
  StoreState& state() { return state_; }
  UnitsStore units() { return UnitsStore(state_.m_orvcf); }

  /// The register's assets, 1 to the last; the table's record 0 is not counted.
  [[nodiscard]] std::int32_t assetCount() const;
  /// Asset `index` as far as its values can be read: one without amounts is read up to them.
  /// An error that is not of its values, as running out of memory, reaches the caller.
  CalculateDepPtr asset(std::int32_t index);

  /// Runs `change` in one unit of work. All of it reaches the file, or nothing where `keep` is
  /// false or an error was reported meanwhile; that report is the answer. An error of writing
  /// reaches the caller. The host must have units of work.
  std::optional<std::string> changeAtOnce(const std::function<void()>& change, bool keep = true);

 private:
  Date today_;
  StoreState state_;
  AssetStore store_;
};

}  // namespace depcalc
