// SQLite's usual file system with somebody who looks on.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace depcalc::testing_support {

/// Something that is about to happen to a file.
struct DiskChange {
  enum class Kind { create, write, truncate, sync, remove };
  static constexpr int kinds = 5;

  Kind kind;
  std::string_view path;
  std::int64_t at = 0;     ///< of a write: where; of a truncation: the new size
  std::string_view bytes;  ///< of a write
  bool lasts = false;      ///< a removal is not complete before the directory has it
};

/// Registered under its name as long as it lives. `watcher` hears of every change before it is
/// made, and answers 0, or the SQLite code to fail with instead.
class WatchedVfs {
 public:
  using Watcher = std::function<int(const DiskChange&)>;

  WatchedVfs(std::string name, Watcher watcher);
  ~WatchedVfs();
  WatchedVfs(const WatchedVfs&) = delete;
  WatchedVfs& operator=(const WatchedVfs&) = delete;

  [[nodiscard]] const std::string& name() const;

 private:
  struct Layer;
  std::unique_ptr<Layer> layer_;
};

}  // namespace depcalc::testing_support
