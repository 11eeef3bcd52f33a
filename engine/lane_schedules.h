// What a rule is given of several assets side by side in the lanes of a vector, instead of the
// input and the amounts of one.
#pragma once

#include <algorithm>
#include <array>
#include <cstring>

#include "engine/lane_values.h"

namespace depcalc {

/// A vector of `count` doubles.
template <std::size_t count>
struct VectorOf;
template <>
struct VectorOf<2> {
  typedef double Type __attribute__((vector_size(16)));
};
template <>
struct VectorOf<4> {
  typedef double Type __attribute__((vector_size(32)));
};
template <typename V>
inline constexpr std::size_t lanes_of = sizeof(V) / sizeof(double);

template <typename V>
LaneNumber<V> loaded(const std::array<double, lanes_of<V>>& numbers) {
  V vector;
  std::memcpy(&vector, numbers.data(), sizeof vector);
  return vector;
}

/// The index of a fiscal year for each asset, within the same few years for all of them.
template <typename V>
class LaneYears {
 public:
  LaneYears(const V& years, std::int32_t least, std::int32_t most)
      : years_(years), least_(least), most_(most) {}
  LaneYears(const LaneYears& other)
      : years_(other.years_), least_(other.least_), most_(other.most_) {}
  LaneYears& operator=(const LaneYears& other) = default;

  [[nodiscard]] LaneMask<V> are(std::int32_t year) const {
    return years_ == static_cast<double>(year);
  }
  [[nodiscard]] LaneMask<V> reach(std::int32_t year) const {
    return years_ >= static_cast<double>(year);
  }
  [[nodiscard]] std::int32_t least() const { return least_; }
  [[nodiscard]] std::int32_t most() const { return most_; }

  friend LaneYears chosen(const LaneMask<V>& mask, const LaneYears& yes, const LaneYears& no) {
    return {mask.bits() ? yes.years_ : no.years_, std::min(yes.least_, no.least_),
            std::max(yes.most_, no.most_)};
  }

 private:
  V years_;
  std::int32_t least_;
  std::int32_t most_;
};

/// Stands for ScheduleInput.
template <typename V>
struct LanesInput {
  LaneMoney<V> basis;
  LaneMoney<V> salvage;
  LaneNumber<V> life;
  LaneNumber<V> first_year_fraction;
  LaneMask<V> full_year;
  LaneYears<V> last_whole_year;
  LaneYears<V> year_after_last;

  [[nodiscard]] const LaneMask<V>& fullYear() const { return full_year; }
  [[nodiscard]] LaneMask<V> lasts(std::int32_t years) const {
    return life.value() == static_cast<double>(years);
  }
  [[nodiscard]] const LaneYears<V>& lastWholeYear() const { return last_whole_year; }
  [[nodiscard]] const LaneYears<V>& yearAfterLast() const { return year_after_last; }
};

/// Stands for Amounts: a vector of ticks for each fiscal year.
template <typename V>
class LanesAmounts {
 public:
  /// Of one fiscal year.
  class Row {
   public:
    explicit Row(V* ticks) : ticks_(ticks) {}
    explicit operator LaneMoney<V>() const { return LaneMoney<V>(*ticks_); }
    void set(const LaneMask<V>& assets, const LaneMoney<V>& value) const {
      *ticks_ = assets.bits() ? value.ticks() : *ticks_;
    }

   private:
    V* ticks_;
  };

  /// Of each asset's own fiscal year.
  class Cells {
   public:
    Cells(V* rows, const LaneYears<V>& years) : rows_(rows), years_(years) {}
    explicit operator LaneMoney<V>() const {
      V ticks{};
      for (std::int32_t year = years_.least(); year <= years_.most(); ++year) {
        ticks = years_.are(year).bits() ? rows_[year] : ticks;
      }
      return LaneMoney<V>(ticks);
    }
    void set(const LaneMask<V>& assets, const LaneMoney<V>& value) const {
      for (std::int32_t year = years_.least(); year <= years_.most(); ++year) {
        Row(rows_ + year).set(assets & years_.are(year), value);
      }
    }

   private:
    V* rows_;
    LaneYears<V> years_;
  };

  explicit LanesAmounts(V* rows) : rows_(rows) {}

  Row operator[](std::int32_t year) const { return Row(rows_ + year); }
  Cells operator[](const LaneYears<V>& years) const { return Cells(rows_, years); }
  [[nodiscard]] LaneMask<V> isTaken(const LaneYears<V>& years) const {
    return LaneMoney<V>((*this)[years]) != LaneMoney<V>();
  }

 private:
  V* rows_;
};

}  // namespace depcalc
