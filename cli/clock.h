// What the clocks say.
#pragma once

#include <chrono>
#include <functional>

#include "values/date.h"

namespace depcalc {

/// The current date where the computer stands.
Date todayByTheClock();

/// Says how late it is, for those who wait.
using Now = std::function<std::chrono::steady_clock::time_point()>;

}  // namespace depcalc
