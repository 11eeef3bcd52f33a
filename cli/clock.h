// Today.
#pragma once

#include "values/date.h"

namespace depcalc {

/// The current date where the computer stands.
Date todayByTheClock();

}  // namespace depcalc
