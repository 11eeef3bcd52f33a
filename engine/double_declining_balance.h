// Double-declining-balance depreciation: the diminishing balance method (IAS 16, paragraph 62) at
// twice the straight-line rate, the "200 percent declining balance" of the United States' tax
// rules, here without their switch to straight line.
#pragma once

#include "engine/schedule.h"

namespace depcalc {

/// What may still be taken before an asset is down to its salvage value.
template <typename Money>
Money leftAboveSalvage(Money basis, Money taken, Money salvage) {
  return basis - taken - salvage;
}

/// Whether `amount`, taken after `accumulated` has been taken, would carry an asset below its
/// salvage value. Exactly down to it would not. `accumulated` counts to four decimals.
bool fullyDepreciated(Currency basis, Currency salvage, double amount, double accumulated);

/// Each asset year takes 2 / life of the book value, which starts at the full basis. Salvage is
/// only a floor: the year that would go below it takes what is left, and the schedule stops
/// there. It is never topped up to reach salvage, so its sum may stay below basis − salvage.
/// `amounts` starts all zero and holds indices 0 to life + 1. A life of 0 is error 11.
void doubleDecliningBalance(const ScheduleInput& input, Amounts amounts);

/// The book value on its way down.
template <Listener L>
class DecliningBalance {
 public:
  using Number = typename L::Number;
  using Money = typename L::Money;

  template <typename Input>
  DecliningBalance(const Input& input, L& listener)
      : basis_(input.basis),
        salvage_(input.salvage),
        listener_(listener),
        rate_(listener.tell(RuleStep::rate, divide(Number(2.0), Number(input.life)))),
        book_(listener.tell(RuleStep::book_value, basis_, {1})) {}

  /// `share` of the current asset year's amount, to the cent.
  [[nodiscard]] Money amount(const Number& share) const {
    return Money::fromDoubleTo2HalfEven(book_.toDouble() * rate_ * share);
  }

  /// Begins asset year `number`: the whole amount of the one before, not rounded to cents, leaves
  /// the book.
  void beginAssetYear(std::int32_t number) {
    const Money taken_off = book_.times(rate_);
    book_ = listener_.tell(RuleStep::book_value, book_ - taken_off, {number});
  }

  void take(const Money& amount) {
    total_ = listener_.tell(RuleStep::taken, listener_.sum(total_, amount));
  }

  /// What may still be taken down to salvage.
  [[nodiscard]] Money leftToTake() const {
    return listener_.tell(RuleStep::left, leftAboveSalvage(basis_, total_, salvage_));
  }

 private:
  Money basis_;
  Money salvage_;
  L& listener_;
  Number rate_;
  Money book_;
  Money total_;
};

/// Fiscal years 1 to `last`, until salvage is reached.
template <Listener L, typename Input, typename Years, typename Storage>
void decliningBalanceFromSecondYear(const Input& input, const Years& last,
                                    DecliningBalance<L>& balance, Storage amounts, L& listener) {
  using Number = typename L::Number;
  using Money = typename L::Money;
  const Number fraction = listener.recall(RuleStep::first_share, input.first_year_fraction);
  for (const std::int32_t year : listener.years(1, last)) {
    listener.beginYear(year);
    const Number share_left = listener.tell(RuleStep::share_left, 1.0 - fraction);
    const Money rest =
        listener.tell(RuleStep::rest_of_asset_year, balance.amount(share_left), {year});
    const Money left = balance.leftToTake();
    if (const auto those = listener.where(left < rest)) {
      listener.take(amounts[year], RuleStep::only_what_is_left, left);
      if (listener.done()) return;
    }
    balance.beginAssetYear(year + 1);
    balance.take(rest);
    if (const auto those = listener.where(input.lasts(year))) {
      listener.take(amounts[year], RuleStep::within_what_is_left, rest);
      if (listener.done()) return;
    }
    const Money start =
        listener.tell(RuleStep::start_of_asset_year, balance.amount(fraction), {year + 1});
    const Money left_then = balance.leftToTake();
    if (const auto those = listener.where(left_then < start)) {
      listener.take(amounts[year], RuleStep::rest_and_what_is_left, rest + left_then);
      if (listener.done()) return;
    }
    balance.take(start);
    listener.take(amounts[year], RuleStep::sum_of_shares, rest + start);
  }
}

/// Fiscal years 0 to `last`, until salvage is reached.
template <Listener L, typename Input, typename Years, typename Storage>
void decliningBalanceDownToSalvage(const Input& input, const Years& last,
                                   DecliningBalance<L>& balance, Storage amounts, L& listener) {
  using Money = typename L::Money;
  [[maybe_unused]] const auto assets = listener.all();
  listener.beginYear(0);
  const Money first = listener.tell(
      RuleStep::start_of_asset_year,
      balance.amount(listener.recall(RuleStep::first_share, input.first_year_fraction)), {1});
  const Money left = balance.leftToTake();
  if (const auto those = listener.where(left < first)) {
    listener.take(amounts[0], RuleStep::only_what_is_left, left);
    if (listener.done()) return;
  }
  balance.take(listener.take(amounts[0], RuleStep::within_what_is_left, first));
  decliningBalanceFromSecondYear(input, last, balance, amounts, listener);
}

/// The same schedule for who listens.
template <Listener L, typename Input, typename Storage>
void doubleDecliningBalance(const Input& input, Storage amounts, L& listener) {
  using Money = typename L::Money;
  DecliningBalance<L> balance(input, listener);
  const auto last = listener.choose(input.fullYear(), input.lastWholeYear(), input.yearAfterLast());
  decliningBalanceDownToSalvage(input, last, balance, amounts, listener);
  // Rounding may have gone below salvage; that much is given back. What is left stays untaken.
  listener.beginYear(last);
  const Money rest = balance.leftToTake();
  if (const auto those = listener.where(rest < Money())) {
    listener.take(amounts[last], RuleStep::settled, Money(amounts[last]) + rest);
  }
}

}  // namespace depcalc
