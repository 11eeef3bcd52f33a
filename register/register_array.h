// The array in which the register has its assets.
#pragma once

#include <cstdint>

#include "register/dep_calc_view_events.h"

namespace depcalc {

/// Takes the asset of column `column`, from 1, out of an array of `count` assets and the empty slot
/// behind them, so that the array is as the store wants it for a deletion. Answers the index by
/// which the deletion is announced: the asset's, from 0, but 1 with two empty slots where it was
/// the only one. A slot that is not there is error 9.
std::int16_t takeOut(CalculateDepArray& assets, int column, int count);

}  // namespace depcalc
