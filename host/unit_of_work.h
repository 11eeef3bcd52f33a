// What a host may offer beyond the operations that every host has.
#pragma once

#include <cstdint>

namespace depcalc {

/// Gathers changes so that they reach the disk together or, when the process dies first, not at
/// all. Whoever has a unit open sees its changes at once. A host that has units also promises
/// that nobody outside this process changes the file while it is open.
class HostUnitOfWork {
 public:
  virtual ~HostUnitOfWork() = default;

  /// Units nest; only the outermost one counts. Cannot fail.
  virtual void begin() noexcept = 0;
  /// Ends a unit; the outermost end writes. On an error nothing of the unit is kept, unless the
  /// disk had taken it before the error came: the tables hold what the file holds.
  virtual void end() = 0;
  /// Ends the outermost unit (no other may be open) and undoes all that was done in it.
  virtual void abandon() = 0;
  /// Grows with every record added, committed or deleted, by whomever, and when changes are
  /// undone. As long as it stays, so does every record.
  [[nodiscard]] virtual std::uint64_t revision() const noexcept = 0;
};

}  // namespace depcalc
