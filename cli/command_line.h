// The `depcalc` command line.
#pragma once

#include "cli/command.h"

namespace depcalc {

/// Runs what the arguments ask for and gives the exit status. Never fails silently: output that
/// could not be written is status 3.
int runCommandLine(int argc, const char* const* argv, Surroundings& surroundings);

}  // namespace depcalc
