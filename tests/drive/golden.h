// Golden files: a script and what it prints, in one file.
#pragma once

#include <string>
#include <string_view>

#include "DepCalc/screen_maker.h"

namespace depcalc::drive {

/// What a golden file ought to read. Lines that begin with "> " are commands; what a command
/// prints stands below it. Lines that begin with "#" are comments and stay; before the first
/// command "# today: 2024-06-15", "# fiscal year: 2024-04-01" and "# option: --manual-paint" or
/// "# option: --no-host-file" say how to run. A script that cannot go on ends with "stopped: "
/// and the reason.
std::string goldenTranscript(std::string_view file, ScreenMaker& screens);

}  // namespace depcalc::drive
