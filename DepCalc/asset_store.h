// The assets in the company file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DepCalc/register_summary.h"
#include "engine/calculate_dep.h"
#include "host/host.h"

namespace depcalc {

/// The members of the container that the store's procedures work on.
struct StoreState {
  std::shared_ptr<HostCompanyFile> m_orvcf;  ///< null while no company file is open
  std::string TableName;                     ///< "" until the store was opened
  std::int32_t InfoIndex = 0;
  CalculateDepPtr CurrentRecord;
  std::int16_t StartYr = 0;
  double NumYrs = 0;
  std::int16_t NumAssets = 0;
  Date FYEnd;
};

/// The data table of the assets.
inline constexpr std::string_view asset_table_name = "ZEM:DepCalc";

/// The data table "ZEM:DepCalc": record 0 sums the register up (Start, NumYears, FYEND), records
/// 1 to Count - 1 are the assets in the order in which they were first saved.
///
/// Every procedure but `open` has an error trap of its own. A run-time error (no company file is
/// 91) stops it where it stands and is reported as "DepCalc::" and the procedure's name; what it
/// had committed stays committed, and what was read or set so far stays read or set.
class AssetStore {
 public:
  /// `state` is lent and outlives the store. `today` is asked whenever a date is needed.
  AssetStore(StoreState& state, std::function<Date()> today);

  enum class FirstView { entry_form, asset_register };

  /// Names the table and refreshes the fiscal-year end in record 0, which is made when it is not
  /// there. Answers what to show first. Errors reach the caller.
  FirstView open();

  /// Fills the four from record 0; without one they keep their values, and so does StartYr while
  /// no asset was ever saved. The host's current fiscal year wins over the stored one.
  void ReadTableInfo(std::int16_t& StartYr, double& NumYrs, std::int16_t& NumAssets, Date& FYEnd);

  /// Recomputes record 0 from all assets, by way of StartYr and NumYrs of the state.
  void WriteTableInfo();

  /// StartYr and NumYrs of the state from all assets, as WriteTableInfo forms them; writes
  /// nothing. Errors reach the caller and leave the two as far as they got.
  void sumUp();

  /// A new record filled from asset `index`, as far as its values could be read; blank when
  /// there is none. Amounts are read for the years 0 to DepRecovery + 1. A reading that gets to
  /// its end clears RecNew of the state's current record.
  CalculateDepPtr ReadData(std::int16_t index);

  /// Writes the state's current record: over asset `index` when it was saved before (its
  /// RecIndex is not "0"), else behind the last asset, and `index` receives where. Amounts are
  /// written for the register's years 0 to NumYrs, the one after them is blanked, and what an
  /// earlier save left beyond stays. One asset more than 16 bits can count is error 6, and
  /// nothing is added. Does nothing before the store was opened.
  void WriteData(std::int16_t& index);

  /// Takes the last slot away and writes the assets of `myCalcDep` (element j belongs at index
  /// j + 1) over slots `myIndex` (at least 1) to the last. Without assets record 0 goes too.
  void DeleteRecord(const std::vector<CalculateDepPtr>& myCalcDep, std::int16_t myIndex);

  /// Makes `myRecord` the current record and writes it.
  void DepCalcContSaveRecord(CalculateDepPtr myRecord);

 private:
  class UnitScope;
  using Table = std::shared_ptr<HostTable>;
  using Record = std::shared_ptr<HostRecord>;

  template <typename Body>
  void procedure(std::string_view name, Body&& body);
  [[nodiscard]] HostCompanyFile& companyFile() const;
  [[nodiscard]] CalculateDep& currentRecord() const;
  [[nodiscard]] Table openTable() const;
  [[nodiscard]] std::int16_t infoIndex() const;
  [[nodiscard]] Date fiscalYearEnd() const;

  void sumUpRecords(HostTable& table);
  void findFirstYear(HostTable& table);
  void findSpan(HostTable& table);
  void commitTableInfo(HostTable& table);

  void readProperties(HostRecord& record, std::int16_t index, CalculateDep& asset);
  void readAmounts(HostRecord& record, CalculateDep& asset);

  void writeAsset(std::int16_t& index);
  [[nodiscard]] Record recordToWrite(HostTable& table, std::int16_t& index);
  [[nodiscard]] Date placedInService() const;
  void setProperties(HostRecord& record, std::int16_t index, Date placed_in_service);
  void setAmounts(HostRecord& record);

  [[nodiscard]] const std::string& amountName(std::int32_t year) {
    const auto at = static_cast<std::size_t>(year);
    if (at >= amount_names_.size()) nameAmounts(at);
    return amount_names_[at];
  }
  void nameAmounts(std::size_t last);

  void deleteSlot(HostTable& table, std::int16_t index);

  // The summary is kept for hosts that can tell whether anything else changed.
  [[nodiscard]] bool summaryIsCurrent() const;
  void startSummary();
  template <typename Change>
  void change(Change&& change);
  void note(std::int32_t index, const std::optional<SummaryShare>& share);

  StoreState& state_;
  std::function<Date()> today_;
  std::vector<std::string> amount_names_;  ///< by year, as far as they were needed
  RegisterSummary summary_;
  std::weak_ptr<HostCompanyFile> summary_file_;
  std::uint64_t summary_revision_ = 0;
};

}  // namespace depcalc
