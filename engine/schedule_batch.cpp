#include "engine/schedule_batch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "engine/double_declining_balance.h"
#include "engine/first_year_fraction.h"
#include "engine/lanes.h"
#include "engine/side_by_side.h"
#include "engine/straight_line.h"
#include "engine/sum_of_years_digits.h"
#include "engine/units_of_production.h"

namespace depcalc {
namespace {

constexpr std::size_t method_count = 3;
/// Rounded up to a whole number of vectors.
constexpr std::size_t roomFor(std::size_t years) { return (years + 3) / 4 * 4; }
constexpr std::size_t most_years = roomFor(static_cast<std::size_t>(longest_life_in_lane) + 2);

ScheduleInput inputOf(const ScheduledAsset& asset, double first_year_fraction) {
  return {.basis = asset.basis,
          .salvage = asset.salvage,
          .life = asset.life,
          .convention = asset.convention,
          .first_year_fraction = first_year_fraction};
}

/// The first and the last of some years.
struct YearBounds {
  std::int32_t least;
  std::int32_t most;

  void include(std::int32_t year, bool first) {
    least = first ? year : std::min(least, year);
    most = first ? year : std::max(most, year);
  }
};

/// Assets that are calculated side by side, number by number.
template <std::size_t lanes>
struct Group {
  using Numbers = std::array<double, lanes>;
  Numbers basis;
  Numbers salvage;
  Numbers life;
  Numbers first_year_fraction;
  Numbers full_year;
  Numbers last_whole_year;
  Numbers year_after_last;
  YearBounds last_whole_years;
  YearBounds years_after_last;
  std::array<Currency*, lanes> amounts;  ///< where they belong, one method's behind the other's
  std::array<std::size_t, lanes> room;   ///< for one method's

  void set(std::size_t lane, const ScheduledAsset& asset, double fraction) {
    const auto last = static_cast<std::int32_t>(nearestEvenSmall(asset.life - 1.0));
    const auto after = static_cast<std::int32_t>(nearestEvenSmall(asset.life));
    basis[lane] = static_cast<double>(asset.basis.ticks());
    salvage[lane] = static_cast<double>(asset.salvage.ticks());
    life[lane] = asset.life;
    first_year_fraction[lane] = fraction;
    full_year[lane] = asset.convention == cdepfullyear ? 1.0 : 0.0;
    last_whole_year[lane] = last;
    year_after_last[lane] = after;
    last_whole_years.include(last, lane == 0);
    years_after_last.include(after, lane == 0);
  }
};

template <std::size_t lanes>
LaneYears<typename VectorOf<lanes>::Type> yearsOf(const std::array<double, lanes>& years,
                                                  const YearBounds& bounds) {
  return {loaded<typename VectorOf<lanes>::Type>(years).value(), bounds.least, bounds.most};
}

template <typename V>
using IntegersOf = decltype(V() < V());

/// What `nearestEvenSmall` gives.
template <typename V>
void toIntegers(const V& ticks, IntegersOf<V>& integers) {
  const V shifted = ticks + whole_shift;
  std::memcpy(&integers, &shifted, sizeof integers);
  integers -= std::bit_cast<std::int64_t>(whole_shift);
}

/// Rows become columns.
template <typename Row>
std::array<Row, 2> turned(const std::array<Row, 2>& rows) {
  const auto& [a, b] = rows;
  return {__builtin_shufflevector(a, b, 0, 2), __builtin_shufflevector(a, b, 1, 3)};
}
template <typename Row>
std::array<Row, 4> turned(const std::array<Row, 4>& rows) {
  const auto& [a, b, c, d] = rows;
  const Row ab_even = __builtin_shufflevector(a, b, 0, 4, 2, 6);
  const Row ab_odd = __builtin_shufflevector(a, b, 1, 5, 3, 7);
  const Row cd_even = __builtin_shufflevector(c, d, 0, 4, 2, 6);
  const Row cd_odd = __builtin_shufflevector(c, d, 1, 5, 3, 7);
  return {__builtin_shufflevector(ab_even, cd_even, 0, 1, 4, 5),
          __builtin_shufflevector(ab_odd, cd_odd, 0, 1, 4, 5),
          __builtin_shufflevector(ab_even, cd_even, 2, 3, 6, 7),
          __builtin_shufflevector(ab_odd, cd_odd, 2, 3, 6, 7)};
}

/// Gives each asset of a group its amounts by one method.
template <std::size_t lanes, typename Row>
void handOut(const Row* rows, std::size_t years, std::size_t method, const Group<lanes>& group) {
  for (std::size_t year = 0; year < years; year += lanes) {
    std::array<IntegersOf<Row>, lanes> amounts;
    for (std::size_t i = 0; i < lanes; ++i) toIntegers(rows[year + i], amounts[i]);
    amounts = turned(amounts);
    for (std::size_t lane = 0; lane < lanes; ++lane) {
      const std::size_t room = group.room[lane];
      if (year >= room) continue;
      std::memcpy(static_cast<void*>(group.amounts[lane] + method * room + year), &amounts[lane],
                  sizeof amounts[lane]);
    }
  }
}

template <std::size_t lanes>
void calculateGroup(const Group<lanes>& group) {
  using V = typename VectorOf<lanes>::Type;
  const LanesInput<V> input{
      .basis = LaneMoney<V>(loaded<V>(group.basis).value()),
      .salvage = LaneMoney<V>(loaded<V>(group.salvage).value()),
      .life = loaded<V>(group.life),
      .first_year_fraction = loaded<V>(group.first_year_fraction),
      .full_year = LaneMask<V>(loaded<V>(group.full_year).value() != V{}),
      .last_whole_year = yearsOf<lanes>(group.last_whole_year, group.last_whole_years),
      .year_after_last = yearsOf<lanes>(group.year_after_last, group.years_after_last)};
  const std::size_t years = *std::max_element(group.room.begin(), group.room.end());
  std::array<V, most_years> rows;
  SilentSideBySide<V> nobody;
  const auto calculate = [&](std::size_t method, auto rule) {
    std::fill_n(rows.begin(), years, V{});
    rule(LanesAmounts<V>(rows.data()));
    handOut(rows.data(), years, method, group);
  };
  calculate(0, [&](auto amounts) { straightLine(input, amounts, nobody); });
  calculate(1, [&](auto amounts) { sumOfYearsDigits(input, amounts, nobody); });
  calculate(2, [&](auto amounts) { doubleDecliningBalance(input, amounts, nobody); });
}

// Each of these is compiled, with all that it calls, for the machines that have its registers. For
// Windows gcc does not align those of four on the stack (its bug 54412).
[[gnu::flatten]] void calculate(const Group<2>& group) { calculateGroup(group); }
#if defined(__x86_64__) && !defined(_WIN32)
[[gnu::flatten, gnu::target("avx2")]] void calculate(const Group<4>& group) {
  calculateGroup(group);
}
bool hasFourLanes() { return __builtin_cpu_supports("avx2") != 0; }
#else
void calculate(const Group<4>& group) { calculateGroup(group); }
bool hasFourLanes() { return false; }
#endif

}  // namespace

LaneWidth widestLanes() { return hasFourLanes() ? LaneWidth::four : LaneWidth::two; }

void ScheduleBatch::prepare(const ScheduledAsset& asset, Place& place) {
  place.fits = false;
  try {
    Silent nobody;
    place.first_year_fraction =
        firstFiscalYearOf(asset.convention, asset.placed_in_service, asset.fiscal_year_end, nobody)
            .fraction;
    if (!fitsInLane(inputOf(asset, place.first_year_fraction))) return;
    place.rate = unitsOfProduction(asset.basis, asset.salvage, asset.capacity, nobody);
  } catch (const RuntimeError&) {
    return;
  }
  place.fits = true;
  place.count = amountCount(asset.life);
}

/// Neighbours then have as many years, so that few lanes wait for others.
void ScheduleBatch::orderByLife(std::span<const ScheduledAsset> assets) {
  std::array<std::uint32_t, most_years + 1> ends{};
  for (const Place& place : places_) {
    if (place.fits) ++ends[place.count];
  }
  for (std::size_t i = 1; i < ends.size(); ++i) ends[i] += ends[i - 1];
  order_.resize(ends.back());
  for (std::size_t i = assets.size(); i-- > 0;) {
    if (places_[i].fits) order_[--ends[places_[i].count]] = static_cast<std::uint32_t>(i);
  }
}

/// A few groups are put together before they are calculated: what was just written number by number
/// could not be read as a vector yet.
template <std::size_t lanes>
void ScheduleBatch::calculateGroups(std::span<const ScheduledAsset> assets) {
  constexpr std::size_t at_once = 16;
  std::array<Group<lanes>, at_once> groups;
  for (std::size_t first = 0; first < order_.size(); first += at_once * lanes) {
    const auto those =
        std::span(order_).subspan(first).first(std::min(at_once * lanes, order_.size() - first));
    const std::size_t count = (those.size() + lanes - 1) / lanes;
    // The lanes that are left over repeat the last asset.
    for (std::size_t i = 0; i < count * lanes; ++i) {
      const std::size_t index = those[std::min(i, those.size() - 1)];
      const Place& place = places_[index];
      Group<lanes>& group = groups[i / lanes];
      group.set(i % lanes, assets[index], place.first_year_fraction);
      group.amounts[i % lanes] = amounts_.data() + place.first;
      group.room[i % lanes] = roomFor(place.count);
    }
    for (std::size_t i = 0; i < count; ++i) depcalc::calculate(groups[i]);
  }
}

void ScheduleBatch::calculate(std::span<const ScheduledAsset> assets) {
  places_.resize(assets.size());
  std::size_t end = 0;
  for (std::size_t i = 0; i < assets.size(); ++i) {
    prepare(assets[i], places_[i]);
    places_[i].first = end;
    if (places_[i].fits) end += method_count * roomFor(places_[i].count);
  }
  if (amounts_.size() < end) amounts_.resize(end);
  orderByLife(assets);
  if (width_ == LaneWidth::four) return calculateGroups<4>(assets);
  calculateGroups<2>(assets);
}

std::optional<CalculatedSchedules> ScheduleBatch::of(std::size_t index) const {
  const Place& place = places_[index];
  if (!place.fits) return std::nullopt;
  const Currency* amounts = amounts_.data() + place.first;
  const auto method = [&](std::size_t number) {
    return std::span(amounts + number * roomFor(place.count), place.count);
  };
  return CalculatedSchedules{.first_year_fraction = place.first_year_fraction,
                             .straight_line = method(0),
                             .sum_of_years_digits = method(1),
                             .double_declining_balance = method(2),
                             .rate = place.rate};
}

}  // namespace depcalc
