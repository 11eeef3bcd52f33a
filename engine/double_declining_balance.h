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

  DecliningBalance(const ScheduleInput& input, L& listener)
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
    const Money taken_off = Money::fromDouble(book_.toDouble() * rate_);
    book_ = listener_.tell(RuleStep::book_value, book_ - taken_off, {number});
  }

  void take(const Money& amount) { total_ = listener_.tell(RuleStep::taken, total_ + amount); }

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
template <Listener L>
void decliningBalanceFromSecondYear(const ScheduleInput& input, std::int32_t last,
                                    DecliningBalance<L>& balance, Amounts amounts, L& listener) {
  using Number = typename L::Number;
  using Money = typename L::Money;
  const Number fraction = listener.recall(RuleStep::first_share, input.first_year_fraction);
  for (std::int32_t year = 1; year <= last; ++year) {
    listener.beginYear(year);
    const Number share_left = listener.tell(RuleStep::share_left, 1.0 - fraction);
    const Money rest =
        listener.tell(RuleStep::rest_of_asset_year, balance.amount(share_left), {year});
    if (const Money left = balance.leftToTake(); left < rest) {
      listener.take(amounts[year], RuleStep::only_what_is_left, left);
      return;
    }
    balance.beginAssetYear(year + 1);
    balance.take(rest);
    if (static_cast<double>(year) == input.life) {
      listener.take(amounts[year], RuleStep::within_what_is_left, rest);
      continue;
    }
    const Money start =
        listener.tell(RuleStep::start_of_asset_year, balance.amount(fraction), {year + 1});
    if (const Money left = balance.leftToTake(); left < start) {
      listener.take(amounts[year], RuleStep::rest_and_what_is_left, rest + left);
      return;
    }
    balance.take(start);
    listener.take(amounts[year], RuleStep::sum_of_shares, rest + start);
  }
}

/// The same schedule for who listens.
template <Listener L>
void doubleDecliningBalance(const ScheduleInput& input, Amounts amounts, L& listener) {
  using Money = typename L::Money;
  DecliningBalance<L> balance(input, listener);
  const std::int32_t last = input.fullYear() ? input.lastWholeYear() : input.yearAfterLast();

  listener.beginYear(0);
  const Money first = listener.tell(
      RuleStep::start_of_asset_year,
      balance.amount(listener.recall(RuleStep::first_share, input.first_year_fraction)), {1});
  if (const Money left = balance.leftToTake(); left < first) {
    listener.take(amounts[0], RuleStep::only_what_is_left, left);
  } else {
    balance.take(listener.take(amounts[0], RuleStep::within_what_is_left, first));
    decliningBalanceFromSecondYear(input, last, balance, amounts, listener);
  }
  // Rounding may have gone below salvage; that much is given back. What is left stays untaken.
  listener.beginYear(last);
  const Money rest = balance.leftToTake();
  if (rest < Money()) listener.take(amounts[last], RuleStep::settled, Money(amounts[last]) + rest);
}

}  // namespace depcalc
