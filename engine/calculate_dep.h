// The asset record.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/schedule.h"
#include "engine/schedule_batch.h"
#include "values/currency.h"
#include "values/date.h"

namespace depcalc {

/// One fixed asset: its identification, cost, salvage value, useful life, prorating convention,
/// fiscal-year end, the chosen depreciation method and the amounts per fiscal year; and the four
/// calculations over them. A new record holds zero values throughout.
///
/// Every property is a getter and a setter of the same name. Setters set no flag: RecChanged,
/// RecNew and RecSaved belong to the screens. Setters have no error trap; their errors reach the
/// caller. DepItem and the calculations report theirs ("DepCalc::Get DepItem Error#…").
///
/// Records are shared by reference, so that edits land in the one that everybody sees; they are
/// never copied.
class CalculateDep {
 public:
  CalculateDep() = default;
  CalculateDep(const CalculateDep&) = delete;
  CalculateDep& operator=(const CalculateDep&) = delete;

  /// Position in the company file's table as decimal text; "0" for an asset never saved. Setting
  /// a text that is not numeric changes nothing; one out of 32 bits is error 6.
  [[nodiscard]] std::string RecIndex() const;
  void RecIndex(std::string_view text);

  [[nodiscard]] bool RecNew() const { return rec_new_; }
  void RecNew(bool value) { rec_new_ = value; }
  [[nodiscard]] bool RecSaved() const { return rec_saved_; }
  void RecSaved(bool value) { rec_saved_ = value; }
  [[nodiscard]] bool RecChanged() const { return rec_changed_; }
  void RecChanged(bool value) { rec_changed_ = value; }

  [[nodiscard]] const std::string& AssetID() const { return asset_id_; }
  void AssetID(std::string value) { asset_id_ = std::move(value); }
  [[nodiscard]] const std::string& AssetName() const { return asset_name_; }
  void AssetName(std::string value) { asset_name_ = std::move(value); }
  [[nodiscard]] const std::string& ASerial() const { return serial_; }
  void ASerial(std::string value) { serial_ = std::move(value); }
  [[nodiscard]] const std::string& ADept() const { return department_; }
  void ADept(std::string value) { department_ = std::move(value); }

  /// The day the asset left service.
  [[nodiscard]] Date AssetEndDate() const { return end_date_; }
  void AssetEndDate(Date value) { end_date_ = value; }
  /// The day the asset was placed in service.
  [[nodiscard]] Date AssetStartDate() const { return start_date_; }
  void AssetStartDate(Date value) { start_date_ = value; }

  /// Price obtained at disposal, in the plain number form (1250.5). Setting a text that is not
  /// numeric changes nothing; one out of range is error 6.
  [[nodiscard]] std::string ASalePrice() const { return sale_price_.toText(); }
  void ASalePrice(std::string_view text);

  /// Cost basis: what placing the asset in service cost.
  [[nodiscard]] Currency AssetBasis() const { return basis_; }
  void AssetBasis(Currency value) { basis_ = value; }
  /// Salvage value: what the asset is expected to be worth at the end of its useful life.
  [[nodiscard]] Currency AssetSalvage() const { return salvage_; }
  void AssetSalvage(Currency value) { salvage_ = value; }

  /// Units that the asset is expected to produce, in the plain number form. Setting a text that
  /// is not numeric stores 0.
  [[nodiscard]] std::string AssetProdCap() const;
  void AssetProdCap(std::string_view text);

  /// Useful life in years; may be fractional.
  [[nodiscard]] double DepRecovery() const { return life_; }
  void DepRecovery(double value) { life_ = value; }

  /// The prorating convention (an eConvention) as text. Setting the empty text stores 0; one
  /// that is not a number is error 13, one out of 32 bits error 6.
  [[nodiscard]] std::string DepConvention() const;
  void DepConvention(std::string_view text);

  /// The company's fiscal-year end; only month and day count.
  [[nodiscard]] Date FYEnd() const { return fiscal_year_end_; }
  void FYEnd(Date value) { fiscal_year_end_ = value; }

  /// The chosen method: "SL", "SYD", "DDB", "UOP", or "" while none is chosen.
  [[nodiscard]] const std::string& DepMethod() const { return method_; }
  void DepMethod(std::string value) { method_ = std::move(value); }

  /// The depreciation of fiscal year `myIndex`, 0 being the first; 0 at and beyond
  /// DepRecovery + 1. Reading and writing both resize the amounts to indices 0 to
  /// DepRecovery + 1 first (halves to even), keeping those that fit.
  [[nodiscard]] Currency DepItem(std::int16_t myIndex);
  void DepItem(std::int16_t myIndex, Currency value);
  /// The amounts as they stand, resized by nobody. For tools that only look.
  [[nodiscard]] const std::vector<Currency>& depItems() const { return dep_items_; }

  /// Whether `depVal`, taken after `accDep` has been taken, would carry the asset below its
  /// salvage value; exactly down to it would not.
  [[nodiscard]] bool FullyDepreciated(double depVal, double accDep) const;

  /// The schedules: amounts per fiscal year at indices 0 to DepRecovery + 1, empty when the
  /// calculation met an error. The record keeps the amounts of the method called last, also
  /// those that stood before an error. A life whose bound is below 0 is error 9, to the caller.
  ///
  /// StraightLine also works out the first fiscal year and its share of a year's depreciation;
  /// the other two use the share of the last StraightLine.
  std::vector<Currency> StraightLine();
  std::vector<Currency> SumofYearsDigits();
  std::vector<Currency> DoubleDecliningBalance();

  /// The same into storage of the caller's, for one asset after the other.
  void StraightLine(std::vector<Currency>& result);
  void SumofYearsDigits(std::vector<Currency>& result);
  void DoubleDecliningBalance(std::vector<Currency>& result);

  /// The same of what has been calculated before (schedule_batch.h), from what `scheduled` gave.
  void StraightLine(const CalculatedSchedules& calculated, std::vector<Currency>& result);
  void SumofYearsDigits(const CalculatedSchedules& calculated, std::vector<Currency>& result);
  void DoubleDecliningBalance(const CalculatedSchedules& calculated, std::vector<Currency>& result);
  Currency UnitsofProduction(const CalculatedSchedules& calculated);
  [[nodiscard]] ScheduledAsset scheduled() const;

  /// The rate per unit of production, also stored as DepItem(0). 0 when there is no capacity, or
  /// on an error (also when no amounts were ever allocated).
  Currency UnitsofProduction();

 private:
  void resizeDepItems();
  void recreateDepItems();
  void computeFirstFiscalYear();
  [[nodiscard]] ScheduleInput scheduleInput() const;
  template <typename Rule>
  void schedule(std::string_view procedure, Rule rule, std::vector<Currency>& result);
  template <typename Rule>
  Currency rate(Rule rule);

  double first_year_fraction_ = 0;
  std::int32_t rec_index_ = 0;
  bool rec_new_ = false;
  bool rec_saved_ = false;
  bool rec_changed_ = false;
  std::string asset_id_;
  std::string asset_name_;
  std::string serial_;
  std::string department_;
  Date end_date_;
  Currency sale_price_;
  Currency basis_;
  Date start_date_;
  Currency salvage_;
  double production_capacity_ = 0;
  double life_ = 0;
  std::int32_t convention_ = 0;
  Date fiscal_year_end_;
  std::string method_;
  std::vector<Currency> dep_items_;
};

/// How records are handed around.
using CalculateDepPtr = std::shared_ptr<CalculateDep>;

}  // namespace depcalc
