// What the tests of the store run on.
#include "tests/windows/host/automation_test_hosts.h"

namespace depcalc::testing_support {

const std::vector<HostKind>& hostKinds() {
  static const std::vector<HostKind> kinds{inProcessKind()};
  return kinds;
}

}  // namespace depcalc::testing_support
