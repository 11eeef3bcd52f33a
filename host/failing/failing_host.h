// A host that fails on demand, around any other.
#pragma once

#include <memory>

#include "host/host.h"
#include "values/runtime_error.h"

namespace depcalc {

/// Which of the calls to a failing host fails. Every operation counts, from the application's
/// down to a single value's, or only those that change something (BeginEdit, SetValue, Modified,
/// Commit, Delete, Add); listeners, names() and units of work never do.
struct FailurePlan {
  enum class Counts { everything, changes };

  Counts counts = Counts::everything;
  int fail_at = 0;  ///< the call that fails, from 1; 0: none
  int calls = 0;    ///< made so far
  RuntimeError error{57, "Device I/O error"};

  /// Counts a call; throws when it is the one. A call that fails does nothing.
  void read() {
    if (counts == Counts::everything) change();
  }
  void change() {
    if (++calls == fail_at) throw error;
  }
};

/// `inner` with the failures of `plan`, which may be changed between calls.
std::shared_ptr<HostCompanyFile> failingCompanyFile(std::shared_ptr<HostCompanyFile> inner,
                                                    std::shared_ptr<FailurePlan> plan);
/// The same for the application and all that is reached through it.
std::shared_ptr<HostApplication> failingApplication(std::shared_ptr<HostApplication> inner,
                                                    std::shared_ptr<FailurePlan> plan);

}  // namespace depcalc
