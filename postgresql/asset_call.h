// What every function of the extension does with its call: the arguments out of the server's types,
// amounts and refusals into them.
//
// Any function of the server's may leave by a long jump, and `raise` does. So nothing that is alive
// in this room across a call has a destructor, and what may throw stands behind calculation.h.
#pragma once

#include "postgresql/calculation.h"
#include "postgresql/server.h"

namespace depcalc::postgresql {

/// Where a function has the arguments that refusals name; those that it has not are -1.
struct ArgumentPlaces {
  int placed_in_service = -1;
  int fiscal_year_end = -1;
  int life = -1;
  int convention = -1;
  int basis = -1;
  int salvage = -1;
  int capacity = -1;
  int method = -1;
};

/// What describes an asset comes first in every function that takes one, and then the year, if any.
inline constexpr ArgumentPlaces asset_places{.placed_in_service = 0,
                                             .fiscal_year_end = 1,
                                             .life = 2,
                                             .convention = 3,
                                             .basis = 4,
                                             .salvage = 5,
                                             .method = 6};
inline constexpr int place_of_year = 7;

/// Whether a call may keep what it knows of labels in its function's memory. A function that
/// returns a set keeps its rows there.
enum class Labels : bool { looked_up, remembered };

/// The schedule of the asset that the arguments describe. One that cannot be calculated is raised.
void scheduleOfCall(FunctionCallInfo call, Labels labels, AssetSchedule& schedule);

/// A numeric as decimal text, in the memory of the call.
NumberText textOfNumber(Datum number);

/// An amount as a numeric, exactly: with four decimals, as data files have it.
Datum numericOf(Currency amount);

/// Raises `refusal` as an error; returns from `none`.
void raise(Refusal refusal, FunctionCallInfo call, const ArgumentPlaces& places);

}  // namespace depcalc::postgresql
