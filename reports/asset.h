// An asset as reports see it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/units_produced.h"
#include "values/currency.h"
#include "values/date.h"

namespace depcalc {

/// An asset's values as they were saved. One that was never saved, or that is no value of its kind,
/// is empty or 0 here.
struct SavedAsset {
  std::int32_t number = 0;  ///< in the register, from 1
  std::string id;
  std::string name;
  std::string serial;
  std::string department;
  Date placed_in_service;
  Date disposed;  ///< the zero date where it is in service
  Currency proceeds;
  Currency basis;
  Currency salvage;
  std::string capacity;  ///< a number's text
  double life = 0;
  std::string convention;  ///< "0" to "4"
  Date fiscal_year_end;
  std::string method;
  std::vector<Currency> amounts;  ///< Dep0, Dep1, … up to the last that counts
  UnitsByYear units;
  std::vector<std::string> unreadable;  ///< a line for each value of another type than its own

  bool operator==(const SavedAsset&) const = default;
};

/// How many amounts count of an asset of `life` whose first fiscal year is `first_year`: one each
/// for 0, 1, 2, … below `life` + 1, up to the year 9999.
std::size_t countedAmounts(double life, int first_year);

/// What the saved values come to, year by year: the amounts until the asset's disposal. Fiscal
/// years are the asset's own, named by the calendar year in which they end.
class ReportAsset {
 public:
  explicit ReportAsset(SavedAsset saved);

  [[nodiscard]] const SavedAsset& saved() const { return saved_; }
  /// "SL", "SYD", "DDB", "UOP" ("uop" among them); empty for every other text.
  [[nodiscard]] std::string_view method() const { return method_; }
  /// In words; Full Year for a text that is none of the five.
  [[nodiscard]] std::string_view convention() const;
  /// Whether it has amounts: a method, and units where the method asks for them.
  [[nodiscard]] bool isScheduled() const { return scheduled_; }

  [[nodiscard]] int firstYear() const { return first_year_; }
  /// The fiscal year in which it left service; none while it is in service.
  [[nodiscard]] std::optional<int> disposalYear() const { return disposal_year_; }
  [[nodiscard]] bool isDisposedIn(int year) const { return disposal_year_ == year; }
  /// Whether it is on the books in `year`, or begins to be later.
  [[nodiscard]] bool isNotGoneBefore(int year) const {
    return disposal_year_.value_or(year) >= year;
  }

  /// The depreciation of fiscal year `year`.
  [[nodiscard]] Currency amount(int year) const;
  /// The depreciation of the years from `from` to `to`, both included. Out of range: error 6.
  [[nodiscard]] Currency amounts(int from, int to) const;
  /// The depreciation up to the end of `year`.
  [[nodiscard]] Currency accumulated(int year) const { return amounts(first_year_, year); }
  /// The depreciation of all years.
  [[nodiscard]] Currency allAmounts() const { return accumulated(lastYear()); }
  /// The last year that can have an amount; the one before the first where none can.
  [[nodiscard]] int lastYear() const { return first_year_ + static_cast<int>(amounts_.size()) - 1; }

  /// Proceeds less book value at the disposal.
  [[nodiscard]] Currency gain() const;

 private:
  [[nodiscard]] std::int32_t conventionNumber() const;
  [[nodiscard]] std::vector<Currency> unitsAmounts() const;
  void findDisposal();
  void endAtDisposal();
  [[nodiscard]] Currency amountOfDisposal(Currency amount) const;

  SavedAsset saved_;
  std::string_view method_;
  int first_year_ = 0;
  std::optional<int> disposal_year_;
  bool scheduled_ = false;
  std::vector<Currency> amounts_;  ///< from the first year on
};

}  // namespace depcalc
