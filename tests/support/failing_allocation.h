// Memory that runs out. Linking this replaces operator new and delete, and SQLite's memory.
#pragma once

#include <cstddef>

namespace depcalc::testing_support {

/// While it lives, the nth allocation from now fails, alone or with all that follow; 0: none. One
/// at a time.
class FailingAllocation {
 public:
  enum class In { program, library };  ///< operator new; SQLite's own

  FailingAllocation(In in, long nth, bool and_after);
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  /// Whether there was such an allocation.
  [[nodiscard]] bool reached() const;
};

/// Bytes handed out and not given back, SQLite's among them.
std::size_t liveMemory();

}  // namespace depcalc::testing_support
