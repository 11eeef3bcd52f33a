// Disposal of an asset: what the fiscal year takes in which it leaves service, and what is gained
// or lost (IAS 16, paragraphs 55, 67 and 71; ASC 360-10-40). By the averaging convention that an
// asset was placed in service by, it also leaves.
#pragma once

#include <cstdint>

#include "values/currency.h"
#include "values/date.h"

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

/// Proceeds less the book value: a gain, or a loss below 0. `accumulated` is the depreciation up to
/// the year of the disposal, that year's included. Out of range: error 6.
Currency gainOnDisposal(Currency proceeds, Currency basis, Currency accumulated);

}  // namespace depcalc
