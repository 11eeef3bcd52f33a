// The arithmetic of the four methods and nothing around it: no record, no dates, no checks, no
// error traps. What the machine could do at best; never used but to be measured beside.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

namespace depcalc::bench {

struct BareAsset {
  std::int64_t basis;    ///< ten-thousandths
  std::int64_t salvage;  ///< ten-thousandths
  int life;
  bool full_year;
  double fraction;
  double capacity;
};

struct BareSchedules {
  std::array<std::int64_t, 53> straight_line;
  std::array<std::int64_t, 53> sum_of_years_digits;
  std::array<std::int64_t, 53> double_declining_balance;
  std::int64_t rate;
};

/// Rounds by leaving no room for a fraction; the bits then count in whole numbers.
inline std::int64_t nearest(double x) {
  constexpr double shift = 6755399441055744.0;
  return std::bit_cast<std::int64_t>(x + shift) - std::bit_cast<std::int64_t>(shift);
}
inline std::int64_t ticks(double x) { return nearest(x * 1e4); }
inline std::int64_t cents(double x) { return nearest(x * 1e2) * 100; }

inline void bareStraightLine(const BareAsset& a, std::array<std::int64_t, 53>& out) {
  const std::int64_t base = a.basis - a.salvage;
  const double annual = static_cast<double>(base) / 1e4 / a.life;
  std::int64_t total = out[0] = cents(annual * a.fraction);
  for (int i = 1; i < a.life; ++i) total += out[static_cast<std::size_t>(i)] = cents(annual);
  const auto last = static_cast<std::size_t>(a.full_year ? a.life - 1 : a.life);
  if (!a.full_year) total += out[last] = ticks(annual * (1 - a.fraction));
  out[last] += base - total;
}

inline void bareSumOfYearsDigits(const BareAsset& a, std::array<std::int64_t, 53>& out) {
  const std::int64_t base = a.basis - a.salvage;
  const double money = static_cast<double>(base) / 1e4;
  const double digits = (a.life + 1) * a.life / 2.0;
  double year = money * a.life / digits;
  std::int64_t total = out[0] = cents(year * a.fraction);
  for (int i = 1; i < a.life; ++i) {
    const std::int64_t rest = ticks(year * (1 - a.fraction));
    year = (a.life - i) * money / digits;
    const std::int64_t start = ticks(year * a.fraction);
    total += out[static_cast<std::size_t>(i)] = cents(static_cast<double>(rest + start) / 1e4);
  }
  const auto last = static_cast<std::size_t>(a.full_year ? a.life - 1 : a.life);
  if (!a.full_year) total += out[last] = ticks(year * (1 - a.fraction));
  out[last] += base - total;
}

inline void bareDoubleDecliningBalance(const BareAsset& a, std::array<std::int64_t, 53>& out) {
  const double rate = 2.0 / a.life;
  const std::int64_t base = a.basis - a.salvage;
  double book = static_cast<double>(a.basis) / 1e4;
  const std::int64_t first = cents(book * rate * a.fraction);
  std::int64_t total = out[0] = first < base ? first : base;
  const int years = a.full_year ? a.life : a.life + 1;
  for (int i = 1; i < years; ++i) {
    const std::int64_t rest = cents(book * rate * (1 - a.fraction));
    book -= static_cast<double>(ticks(book * rate)) / 1e4;
    const std::int64_t start = i == a.life ? 0 : cents(book * rate * a.fraction);
    const std::int64_t left = base - total;
    const std::int64_t amount = rest + start < left ? rest + start : left;
    total += out[static_cast<std::size_t>(i)] = amount;
  }
}

inline void bareMethods(const BareAsset& a, BareSchedules& out) {
  bareStraightLine(a, out.straight_line);
  bareSumOfYearsDigits(a, out.sum_of_years_digits);
  bareDoubleDecliningBalance(a, out.double_declining_balance);
  const double money = static_cast<double>(a.basis - a.salvage) / 1e4;
  out.rate = a.capacity != 0 ? ticks(money / a.capacity) : 0;
}

}  // namespace depcalc::bench
