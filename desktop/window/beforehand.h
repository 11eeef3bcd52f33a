// What the desktop does before a handler of the calculator's own runs.
#pragma once

#include <functional>
#include <utility>

#include "controls/control.h"

namespace depcalc::desktop {

/// Lets `first` run each time before `handler`, by whatever way it is raised. The handler does not
/// run where that answers no. What `first` refers to lives as long as the control.
inline void beforehand(Handler& handler, std::function<bool()> first) {
  handler = [first = std::move(first), then = std::move(handler)] {
    if (first() && then) then();
  };
}

}  // namespace depcalc::desktop
