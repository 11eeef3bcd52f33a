// Assets of all kinds: what people enter, what lies on the edge of a rule, and anything at all.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <random>

#include "values/currency.h"
#include "values/date.h"

namespace depcalc::test {

struct SomeAsset {
  Date placed_in_service;
  Date fiscal_year_end;
  Currency basis;
  Currency salvage;
  double life = 0;
  std::int32_t convention = 0;
  double capacity = 0;
};

class RandomAssets {
 public:
  explicit RandomAssets(std::uint64_t seed) : random_(seed) {}

  SomeAsset next() {
    const int kind = between(0, 9);
    if (kind < 6) return ordinary();
    return kind < 9 ? onTheEdge() : anything();
  }

 private:
  int between(int least, int most) {
    return least + static_cast<int>(random_() % static_cast<std::uint64_t>(most - least + 1));
  }
  template <typename Value, std::size_t count>
  Value oneOf(const std::array<Value, count>& values) {
    return values[random_() % count];
  }

  Date someDay(int first_year, int last_year) {
    const auto first = Date::strict(first_year, 1, 1).dayNumber();
    const auto last = Date::strict(last_year, 12, 31).dayNumber();
    return Date::fromDayNumber(between(first, last));
  }
  Date someYearEnd() {
    if (between(0, 1) == 0) return Date::strict(2000, 12, 31);
    return between(0, 9) == 0 ? Date::strict(2024, 2, 29) : someDay(2000, 2024);
  }

  SomeAsset ordinary() {
    SomeAsset asset;
    asset.placed_in_service = someDay(1950, 2050);
    asset.fiscal_year_end = someYearEnd();
    const std::int64_t unit = oneOf<std::int64_t>(std::array<std::int64_t, 3>{1, 100, 10'000});
    const auto most = static_cast<std::uint64_t>(100'000'000'000 / unit);
    asset.basis = Currency::fromTicks(static_cast<std::int64_t>(random_() % most) * unit);
    asset.salvage =
        Currency::fromTicks(between(0, 2) == 0 ? 0 : asset.basis.ticks() / between(1, 20));
    asset.life = between(0, 3) == 0 ? between(100, 5'000) / 100.0 : between(1, 50);
    asset.convention = between(0, 4);
    asset.capacity = between(0, 1'000'000);
    return asset;
  }

  SomeAsset onTheEdge() {
    constexpr std::array<std::int64_t, 16> ticks{0,
                                                 1,
                                                 -1,
                                                 49,
                                                 50,
                                                 51,
                                                 100,
                                                 12'345,
                                                 99'999'999'999,
                                                 100'000'000'000,
                                                 999'999'999'999,
                                                 1'000'000'000'000,
                                                 1'000'000'000'001,
                                                 -999'999'999'999,
                                                 -1'000'000'000'000,
                                                 std::numeric_limits<std::int64_t>::max()};
    constexpr std::array<double, 22> lives{0.0,  0.4,  0.5,   0.6,   0.99, 1.0,  1.01, 1.49,
                                           1.5,  1.51, 2.0,   2.5,   3.0,  3.5,  49.5, 50.0,
                                           99.5, 100., 100.4, 255.0, 256., -0.75};
    SomeAsset asset = ordinary();
    if (between(0, 1) == 0) asset.basis = Currency::fromTicks(oneOf(ticks));
    if (between(0, 1) == 0) asset.salvage = Currency::fromTicks(oneOf(ticks));
    if (between(0, 1) == 0) asset.life = oneOf(lives);
    if (between(0, 3) == 0) asset.convention = between(-1, 6);
    if (between(0, 3) == 0) asset.placed_in_service = Date::strict(2023, 12, between(14, 17));
    if (between(0, 3) == 0) asset.capacity = oneOf(lives);
    return asset;
  }

  SomeAsset anything() {
    SomeAsset asset = ordinary();
    asset.placed_in_service = between(0, 1) == 0 ? someDay(9997, 9999) : someDay(100, 9999);
    if (between(0, 3) == 0) asset.placed_in_service = someDay(100, 101);
    const auto ticks = [this] {
      return Currency::fromTicks(static_cast<std::int64_t>(random_()) >> between(0, 40));
    };
    if (between(0, 1) == 0) asset.basis = ticks();
    if (between(0, 1) == 0) asset.salvage = ticks();
    if (between(0, 1) == 0) asset.life = between(-200, 30'000) / 100.0;
    if (between(0, 20) == 0) asset.life = std::numeric_limits<double>::quiet_NaN();
    return asset;
  }

  std::mt19937_64 random_;
};

}  // namespace depcalc::test
