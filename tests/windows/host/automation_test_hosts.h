// The hosts that the tests of every host run on here. Each program says which by its own
// hostKinds().
#pragma once

#include "tests/support/test_hosts.h"

namespace depcalc::testing_support {

/// Company files in memory, behind automation objects of this process.
HostKind inProcessKind();

}  // namespace depcalc::testing_support
