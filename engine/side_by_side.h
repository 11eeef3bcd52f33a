// Several assets side by side in the lanes of a vector: what a rule is given instead of one asset.
// Each goes its own way through the rule. A condition or a loop goes on while there is any asset
// left in it, and what it does then is kept for these assets alone.
#pragma once

#include <array>
#include <span>

#include "engine/lanes.h"

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

/// Listens to nothing of any of them, and knows which are where in the rule.
template <typename V>
class SilentSideBySide {
 public:
  using Number = LaneNumber<V>;
  using Money = LaneMoney<V>;
  using Mask = LaneMask<V>;
  using Amount = typename LanesAmounts<V>::Row;

  SilentSideBySide() : active_(V{} == V{}), left_(active_) {}

  template <typename Value>
  static Value tell(RuleStep /*step*/, const Value& value, StepAbout /*about*/ = {}) {
    return value;
  }
  static Number recall(RuleStep /*step*/, const Number& value) { return value; }
  static Number atMost(RuleStep /*step*/, const Number& value, const Number& most) {
    return V(value.value() < most.value() ? value.value() : most.value());
  }
  template <typename Place>
  Money take(const Place& place, RuleStep /*step*/, const Money& value) {
    place.set(active_, value);
    return value;
  }
  template <typename Year>
  static void beginYear(const Year& /*index*/) {}

  /// While it lives, only the assets for which a condition holds are in the rule.
  class Block {
   public:
    Block(SilentSideBySide& all, const Mask& assets) : all_(all), before_(all.active_) {
      all.active_ = all.active_ & assets;
    }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    ~Block() { all_.active_ = before_ & all_.left_; }
    explicit operator bool() const { return isAny(all_.active_); }

   private:
    SilentSideBySide& all_;
    Mask before_;
  };
  Block where(const Mask& condition) { return {*this, condition}; }
  Block whereNeeded(const Mask& condition) { return {*this, condition}; }

  bool done() {
    left_ = left_ & !active_;
    return !isAny(left_);
  }

  /// While it lives, assets can be done.
  class Function {
   public:
    explicit Function(SilentSideBySide& all) : all_(all), active_(all.active_), left_(all.left_) {
      all.left_ = all.active_;
    }
    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;
    ~Function() {
      all_.active_ = active_;
      all_.left_ = left_;
    }

   private:
    SilentSideBySide& all_;
    Mask active_;
    Mask left_;
  };
  Function all() { return Function(*this); }

  /// The years from `first` while there is any asset to reach them.
  class Years {
   public:
    struct End {};
    Years(SilentSideBySide& all, std::int32_t first, const LaneYears<V>& last)
        : all_(all), before_(all.active_), year_(first), last_(last) {}
    Years(const Years&) = delete;
    Years& operator=(const Years&) = delete;
    ~Years() { all_.active_ = before_ & all_.left_; }

    class Year {
     public:
      explicit Year(Years& years) : years_(years) {}
      std::int32_t operator*() const { return years_.year_; }
      Year& operator++() {
        ++years_.year_;
        return *this;
      }
      bool operator!=(End /*end*/) const { return years_.goesOn(); }

     private:
      Years& years_;
    };
    Year begin() { return Year(*this); }
    static End end() { return {}; }

   private:
    bool goesOn() {
      all_.active_ = before_ & all_.left_ & last_.reach(year_);
      return year_ <= last_.most() && isAny(all_.active_);
    }

    SilentSideBySide& all_;
    Mask before_;
    std::int32_t year_;
    const LaneYears<V>& last_;
  };
  Years years(std::int32_t first, const LaneYears<V>& last) { return {*this, first, last}; }

  static Mask both(const Mask& one, const Mask& other) { return one & other; }
  static LaneYears<V> choose(const Mask& condition, const LaneYears<V>& yes,
                             const LaneYears<V>& no) {
    return chosen(condition, yes, no);
  }
  void set(Number& variable, const Number& value) const {
    variable = V(active_.bits() ? value.value() : variable.value());
  }
  Money sum(const Money& total, const Money& amount) const {
    return Money(V(total.ticks() + (active_.bits() ? amount.ticks() : V{})));
  }

 private:
  Mask active_;  ///< the assets for which the rule goes on at this place
  Mask left_;    ///< those that are not done
};

}  // namespace depcalc
