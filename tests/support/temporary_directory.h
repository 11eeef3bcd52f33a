// A directory for one test.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace depcalc::testing_support {

/// A new empty directory, gone with all that is in it at the end of its life. In memory where the
/// system has a place for that: what tests write need not survive a power failure.
class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    const std::filesystem::path in_memory = "/dev/shm";
    const bool has_memory = std::filesystem::is_directory(in_memory);
    const auto place = has_memory ? in_memory : std::filesystem::temp_directory_path();
    path_ = (place / ("depcalc-" + std::string(6, 'X'))).string();
    if (::mkdtemp(path_.data()) == nullptr) std::abort();
  }
  ~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace depcalc::testing_support
