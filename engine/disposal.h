// Disposal of an asset: what the fiscal year takes in which it leaves service, and what is gained
// or lost (IAS 16, paragraphs 55, 67 and 71; ASC 360-10-40). By the averaging convention that an
// asset was placed in service by, it also leaves.
#pragma once

#include <cstdint>

#include "engine/asset_fiscal_years.h"
#include "engine/convention.h"
#include "engine/first_year_fraction.h"
#include "engine/schedule_span.h"
#include "engine/told_steps.h"
#include "values/currency.h"
#include "values/date.h"
#include "values/money_range.h"

namespace depcalc {

/// The share of the fiscal year from `year_start` to `year_end` for which an asset counts as held
/// that left service on `disposed`, from 0 to 1: 0 for Full Year, which took a whole year in the
/// first; 0.5 for Half Year; for Full Month the months before that of `disposed` over 12; for Half
/// Month the same, with that month itself from the 16th on; for Actual Days and any other number
/// the days before `disposed` over 365, or 366 in a fiscal year with a 29 February.
double shareHeld(std::int32_t convention, Date year_start, Date year_end, Date disposed);

/// The share of its fiscal year that a schedule's amount covers: 1, but in the year after the last
/// whole one what the first year left over. Full Year has no such year.
double shareCovered(std::int32_t convention, double first_year_fraction, bool last_year);

/// What the fiscal year of the disposal takes of `amount`, its whole amount: `amount` × `held` /
/// `covered` to the cent, halves to even, but never more than `amount` in size. `amount` itself
/// where it covers nothing.
Currency amountOfDisposalYear(Currency amount, double held, double covered);

/// What the disposal of a scheduled asset goes by.
struct DisposedAsset {
  Date placed_in_service;
  Date fiscal_year_end;  ///< of which month and day count
  Date disposed;
  double life = 0;
  std::int32_t convention = cdepfullyear;
};

/// What the fiscal year in which `asset` leaves service takes of `amount`, its whole amount, by the
/// rules above. Placed in service and disposed of in one fiscal year, it takes nothing.
Currency amountUntilDisposal(const DisposedAsset& asset, Currency amount);

/// Proceeds less the book value: a gain, or a loss below 0. `accumulated` is the depreciation up to
/// the year of the disposal, that year's included. Out of range: error 6.
Currency gainOnDisposal(Currency proceeds, Currency basis, Currency accumulated);

/// An amount's size as a number below 0, of which there is one more than above.
template <typename Money>
Money sizeBelowZero(const Money& amount) {
  return amount > Money() ? Money() - amount : amount;
}

// The same for who listens.

template <Listener L>
typename L::Number unlimitedShareHeld(std::int32_t convention, Date year_start, Date year_end,
                                      Date disposed, L& listener) {
  using Number = typename L::Number;
  const StepAbout held{.from = year_start, .to = disposed};
  const auto months = [&](int more) {
    return listener.tell(RuleStep::months_held, Number(monthsBetween(year_start, disposed) + more),
                         held);
  };
  switch (convention) {
    case cdepfullyear:
      return 0.0;
    case cdepHalfYear:
      return 0.5;
    case cdepFullMonth:
      return months(0) / 12.0;
    case cdepHalfMonth:
      return months(disposed.day() < 16 ? 0 : 1) / 12.0;
    default: {
      const Number days =
          listener.tell(RuleStep::days_held, Number(daysBetween(year_start, disposed)), held);
      return days / listener.tell(RuleStep::days_of_that_year, Number(daysCounted(year_end)),
                                  {.to = year_end});
    }
  }
}

template <Listener L>
typename L::Number shareHeld(std::int32_t convention, Date year_start, Date year_end, Date disposed,
                             L& listener) {
  using Number = typename L::Number;
  const Number share =
      listener.tell(RuleStep::share_held,
                    unlimitedShareHeld(convention, year_start, year_end, disposed, listener),
                    {.number = convention, .from = year_start, .to = disposed});
  const Number limited = listener.atMost(RuleStep::limited_share_held, share, Number(1.0));
  return limited < 0.0 ? listener.tell(RuleStep::limited_share_held, Number(0.0)) : limited;
}

template <Listener L>
typename L::Number shareCovered(std::int32_t convention, double first_year_fraction, bool last_year,
                                L& listener) {
  if (!last_year || convention == cdepfullyear) return 1.0;
  return listener.tell(RuleStep::share_covered,
                       1.0 - listener.recall(RuleStep::first_share, first_year_fraction));
}

template <Listener L>
typename L::Money amountOfDisposalYear(const typename L::Money& amount,
                                       const typename L::Number& held,
                                       const typename L::Number& covered, L& listener) {
  using Number = typename L::Number;
  using Money = typename L::Money;
  if (covered <= 0.0) return amount;
  const Number share = amount.toDouble() * held / covered;
  if (share >= more_than_money || share <= -more_than_money) return amount;
  const Money rounded =
      listener.tell(RuleStep::share_of_amount, Money::fromDoubleTo2HalfEven(share));
  return sizeBelowZero(rounded) < sizeBelowZero(amount)
             ? listener.tell(RuleStep::no_more_than_whole, amount)
             : rounded;
}

template <Listener L>
typename L::Money amountUntilDisposal(const DisposedAsset& asset, const typename L::Money& amount,
                                      L& listener) {
  using Number = typename L::Number;
  using Money = typename L::Money;
  const AssetFiscalYears years(asset.placed_in_service, asset.fiscal_year_end);
  const int year = years.of(asset.disposed, listener);
  if (year == years.first()) return listener.tell(RuleStep::gone_at_once, Money());
  const Number held = shareHeld(asset.convention, years.firstDay(year), years.lastDay(year),
                                asset.disposed, listener);
  const double fraction =
      firstFiscalYearOf(asset.convention, asset.placed_in_service, asset.fiscal_year_end).fraction;
  const double spanned =
      nearestEven(fiscalYearsSpanned(asset.life, asset.convention == cdepfullyear));
  const bool last_year = year - years.first() == spanned - 1.0;
  const Number covered = shareCovered(asset.convention, fraction, last_year, listener);
  return amountOfDisposalYear(amount, held, covered, listener);
}

}  // namespace depcalc
