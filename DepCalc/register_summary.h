// The register's first fiscal year and span, kept up to date asset by asset.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "values/date.h"

namespace depcalc {

/// The calendar year in which the first fiscal year of an asset ends: the year of its start
/// date, or the next one when the fiscal-year end of that year lies before the start. 29
/// February counts as 1 March in a common year.
std::int16_t firstFiscalYearOf(Date placed_in_service, Date fiscal_year_end);

/// How many fiscal years an asset spans from the register's first year on, counted `offset`
/// years before its own; rounded, halves to even. Out of 16 bits: error 6.
std::int16_t spanOf(int offset, double life, bool partial_first_year);

/// What one asset contributes to the register's summary.
struct SummaryShare {
  std::int16_t first_year = 0;
  bool units_of_production = false;  ///< spans one year, whatever its life
  bool partial_first_year = false;   ///< takes one year more than its life
  double life = 0;
  friend bool operator==(const SummaryShare&, const SummaryShare&) = default;
};

/// The shares of all assets by table index, counted by first fiscal year, so that changing one
/// asset costs next to nothing however many there are. The longest span of a year is that of
/// its longest life, because rounding never turns an order around.
class RegisterSummary {
 public:
  struct Totals {
    std::int16_t start_year = 3000;
    double years = 0;
  };

  void forget();
  /// Asset `index` (from 1) now contributes `share`, or nothing that can be counted: then the
  /// records themselves have to be asked.
  void note(std::int32_t index, const std::optional<SummaryShare>& share);
  /// Asset `index` and all behind it are gone.
  void dropFrom(std::int32_t index);

  /// The summary of assets 1 to `assets`; empty when one of them is not known or not countable.
  [[nodiscard]] std::optional<Totals> totals(std::int32_t assets) const;

 private:
  struct Year {
    std::int32_t assets = 0;
    std::int32_t units_of_production = 0;
    std::map<double, std::int32_t> lives[2];  ///< whole and partial first year: life, assets
  };
  enum class Known { no, uncountable, counted };
  struct Entry {
    Known known = Known::no;
    SummaryShare share;
  };

  [[nodiscard]] Totals sum() const;
  void count(const SummaryShare& share);
  void uncount(const Entry& entry);

  std::vector<Entry> entries_;
  std::int32_t counted_ = 0;
  std::map<std::int16_t, Year> years_;
  mutable std::optional<Totals> totals_;  ///< of what is counted, once they were asked for
};

}  // namespace depcalc
