// The store on some host and the literal procedures, side by side.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "DepCalc/asset_store.h"
#include "common/report_error.h"
#include "tests/DepCalc/literal_store.h"
#include "tests/support/test_hosts.h"

namespace depcalc::testing_support {

/// The kinds of host to run the store on. It is always put behind a failing host here.
std::vector<HostKind> storeHostKinds();

/// What a user enters for an asset.
struct AssetEntry {
  std::string id = "TRK-014";
  double life = 5;
  std::string convention = "0";
  std::string method = "SL";
  Date start = Date::carrying(2024, 3, 15);
  Date fiscal_year_end = Date::carrying(2024, 12, 31);
  std::int64_t basis = 10'000;  ///< whole units
  std::string capacity = "0";
  bool calculated = true;  ///< amounts come from the method's calculation
};

void enter(const AssetEntry& entry, CalculateDep& asset);
CalculateDepPtr newAsset(const AssetEntry& entry);

/// The records of the assets' table; the units of asset n are under -n.
TableContent contentOf(HostCompanyFile& file);
/// Everything that can be seen of an asset, as text.
std::string describe(const CalculateDepPtr& asset);
std::string describe(const TableContent& table);

class StorePair {
 public:
  explicit StorePair(const HostKind& kind, Date today = Date::carrying(2024, 6, 1),
                     Date fiscal_year_start = Date::carrying(2024, 1, 1));

  /// Runs the same on both sides: `step(store)` gets an AssetStore or a LiteralStore.
  template <typename Step>
  void both(Step step) {
    {
      const ErrorReportHook hook(
          [&](const ErrorReport& report) { reports.push_back(report.text()); });
      step(store, state);
    }
    stepLiteral(step);
    expectSame();
  }

  /// The asset record's own reports count on this side too.
  template <typename Step>
  void stepLiteral(Step step) {
    const ErrorReportHook hook(
        [&](const ErrorReport& report) { literal.reports.push_back(report.text()); });
    step(literal, literal);
  }

  void openBoth();
  void saveNew(const AssetEntry& entry);
  void saveEdited(std::int16_t index, const AssetEntry& entry);
  /// As the register deletes its asset `index` (from 1).
  void remove(std::int16_t index);

  /// Table, container members, current record and reports are the same on both sides.
  void expectSame();
  /// Makes the literal side what the store's side is now.
  void adopt();

  std::unique_ptr<TestHost> host;
  std::shared_ptr<FailurePlan> plan = std::make_shared<FailurePlan>();
  StoreState state;
  std::vector<std::string> reports;
  LiteralStore literal;
  AssetStore store;
};

/// The register's array as the container fills it, after asset `index` (from 1) was taken out.
template <typename Store>
std::vector<CalculateDepPtr> registerWithout(Store& store, int assets, int index) {
  std::vector<CalculateDepPtr> records;
  for (int i = 1; i <= assets; ++i) {
    auto record = store.ReadData(static_cast<std::int16_t>(i));
    if (i != index) records.push_back(std::move(record));
  }
  if (records.empty()) records.emplace_back();
  records.emplace_back();
  return records;
}

}  // namespace depcalc::testing_support
