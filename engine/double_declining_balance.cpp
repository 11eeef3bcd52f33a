#include "engine/double_declining_balance.h"

namespace depcalc {
namespace {

/// The book value on its way down.
class DecliningBalance {
 public:
  explicit DecliningBalance(const ScheduleInput& input)
      : input_(input), rate_(divide(2.0, input.life)), book_(input.basis) {}

  /// `share` of the current asset year's amount, to the cent.
  [[nodiscard]] Currency amount(double share) const {
    return Currency::fromDoubleTo2HalfEven(book_.toDouble() * rate_ * share);
  }

  /// Ends the current asset year: its whole amount, not rounded to cents, leaves the book.
  void endAssetYear() { book_ -= Currency::fromDouble(book_.toDouble() * rate_); }

  [[nodiscard]] bool goesBelowSalvage(Currency amount) const { return leftToTake() < amount; }
  void take(Currency amount) { total_ += amount; }

  /// What may still be taken down to salvage.
  [[nodiscard]] Currency leftToTake() const {
    return leftAboveSalvage(input_.basis, total_, input_.salvage);
  }

 private:
  const ScheduleInput& input_;
  double rate_;
  Currency book_;
  Currency total_;
};

/// Fiscal years 1 to `last`, until salvage is reached.
void laterYears(const ScheduleInput& input, std::int32_t last, DecliningBalance& balance,
                Amounts amounts) {
  const double fraction = input.first_year_fraction;
  for (std::int32_t year = 1; year <= last; ++year) {
    const Currency rest_of_asset_year = balance.amount(1.0 - fraction);
    if (balance.goesBelowSalvage(rest_of_asset_year)) {
      amounts[year] = balance.leftToTake();
      return;
    }
    balance.endAssetYear();
    balance.take(rest_of_asset_year);
    if (static_cast<double>(year) == input.life) {
      amounts[year] = rest_of_asset_year;
      continue;
    }
    const Currency start_of_next = balance.amount(fraction);
    if (balance.goesBelowSalvage(start_of_next)) {
      amounts[year] = rest_of_asset_year + balance.leftToTake();
      return;
    }
    balance.take(start_of_next);
    amounts[year] = rest_of_asset_year + start_of_next;
  }
}

}  // namespace

bool fullyDepreciated(Currency basis, Currency salvage, double amount, double accumulated) {
  const Currency left = leftAboveSalvage(basis, Currency::fromDouble(accumulated), salvage);
  return left.toDouble() < amount;
}

void doubleDecliningBalance(const ScheduleInput& input, Amounts amounts) {
  DecliningBalance balance(input);
  const std::int32_t last = input.fullYear() ? input.lastWholeYear() : input.yearAfterLast();

  const Currency first = balance.amount(input.first_year_fraction);
  if (balance.goesBelowSalvage(first)) {
    amounts[0] = input.depreciableBase();
  } else {
    amounts[0] = first;
    balance.take(first);
    laterYears(input, last, balance, amounts);
  }
  // Rounding may have gone below salvage; that much is given back. What is left stays untaken.
  const Currency rest = balance.leftToTake();
  if (rest < Currency()) amounts[last] += rest;
}

}  // namespace depcalc
