// A file system that stops taking what is written.
#pragma once

#include <memory>
#include <string>

namespace depcalc::testing_support {

/// SQLite's usual file system, in which the nth change of a file (write, sync, truncation,
/// deletion, making a file) fails, alone or with all that follow. Registered as long as it lives.
class FailingVfs {
 public:
  enum class Failure { disk_full, io_error };

  FailingVfs();
  ~FailingVfs();
  FailingVfs(const FailingVfs&) = delete;
  FailingVfs& operator=(const FailingVfs&) = delete;

  [[nodiscard]] const std::string& name() const;
  /// Counts from now; 0 fails nothing.
  void failAt(int change, Failure failure, bool and_after);
  /// Changes since then.
  [[nodiscard]] int changes() const;

 private:
  struct Layer;
  std::unique_ptr<Layer> layer_;
};

}  // namespace depcalc::testing_support
