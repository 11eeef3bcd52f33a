// Memory that runs out. Linking this replaces operator new and delete, and SQLite's memory.
#pragma once

#include <cstddef>
#include <limits>

namespace depcalc::testing_support {

/// While it lives, so many allocations in a row fail, the nth from now first; 0: none. One at a
/// time.
class FailingAllocation {
 public:
  enum class In { program, library };  ///< operator new; SQLite's own

  static constexpr long endless = std::numeric_limits<long>::max();

  FailingAllocation(In in, long nth, long in_a_row);
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  /// Whether there was such an allocation.
  [[nodiscard]] bool reached() const;
};

/// Bytes handed out and not given back, SQLite's among them.
std::size_t liveMemory();

}  // namespace depcalc::testing_support
