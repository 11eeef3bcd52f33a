// A file system that stops taking what is written.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "tests/host/sqlite/watched_vfs.h"

namespace depcalc::testing_support {

/// SQLite's usual file system, in which the nth change of a file (write, sync, truncation,
/// deletion, making a file) fails, alone or with all that follow. Registered as long as it lives.
class FailingVfs {
 public:
  enum class Failure { disk_full, io_error };

  FailingVfs();

  [[nodiscard]] const std::string& name() const { return vfs_.name(); }
  /// Counts from now; 0 fails nothing.
  void failAt(int change, Failure failure, bool and_after);
  /// From now on changes of this kind fail, and no others.
  void failEvery(DiskChange::Kind kind);
  /// Changes since then.
  [[nodiscard]] int changes() const { return changes_; }
  /// How often a change of this kind was refused, ever.
  [[nodiscard]] int refusals(DiskChange::Kind kind) const {
    return refusals_[static_cast<std::size_t>(kind)];
  }

 private:
  int answer(DiskChange::Kind kind);

  int fail_at_ = 0;
  int changes_ = 0;
  bool and_after_ = false;
  std::optional<DiskChange::Kind> every_;
  Failure failure_ = Failure::disk_full;
  std::array<int, DiskChange::kinds> refusals_{};
  WatchedVfs vfs_;
};

}  // namespace depcalc::testing_support
