// The schedules of many assets at once, several side by side in the lanes of a vector.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "values/currency.h"
#include "values/date.h"

namespace depcalc {

/// What the schedules and the rate of an asset are calculated from.
struct ScheduledAsset {
  Date placed_in_service;
  Date fiscal_year_end;  ///< of which month and day count
  Currency basis;
  Currency salvage;
  double life = 0;
  std::int32_t convention = 0;
  double capacity = 0;

  friend bool operator==(const ScheduledAsset&, const ScheduledAsset&) = default;
};

/// What `CalculateDep` would calculate of an asset. The amounts have indices 0 to life + 1.
struct CalculatedSchedules {
  double first_year_fraction = 0;
  std::span<const Currency> straight_line;
  std::span<const Currency> sum_of_years_digits;
  std::span<const Currency> double_declining_balance;
  Currency rate;
};

/// How many assets a vector holds.
enum class LaneWidth : std::uint8_t { two = 2, four = 4 };

/// The widest that this machine has registers for.
LaneWidth widestLanes();

/// Calculates as `CalculateDep` does, to the last digit. What takes a check is left to it: assets
/// of amounts or lives beyond all that the form accepts, and whatever ends with an error.
class ScheduleBatch {
 public:
  explicit ScheduleBatch(LaneWidth width = widestLanes()) : width_(width) {}

  /// Calculates `assets`, in place of those before. Some hundred at a time share more lanes and fit
  /// in the cache.
  void calculate(std::span<const ScheduledAsset> assets);

  /// Those of asset `index`, until the next are calculated; none where it is left out.
  [[nodiscard]] std::optional<CalculatedSchedules> of(std::size_t index) const;

 private:
  /// Where an asset's amounts begin, one method's behind the other's.
  struct Place {
    bool fits = false;
    double first_year_fraction = 0;
    Currency rate;
    std::size_t first = 0;
    std::size_t count = 0;
  };
  void prepare(const ScheduledAsset& asset, Place& place);
  void orderByLife(std::span<const ScheduledAsset> assets);
  template <std::size_t lanes>
  void calculateGroups(std::span<const ScheduledAsset> assets);

  LaneWidth width_;
  std::vector<Place> places_;
  std::vector<std::uint32_t> order_;
  std::vector<Currency> amounts_;
};

}  // namespace depcalc
