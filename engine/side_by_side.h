// Several assets side by side in the lanes of a vector: who listens to them instead of to one. Each
// goes its own way through a rule. A condition or a loop goes on while there is any asset left in
// it, and what it does then is kept for these assets alone.
#pragma once

#include "engine/lane_schedules.h"
#include "engine/told_steps.h"

namespace depcalc {

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
