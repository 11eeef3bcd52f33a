// Whoever presses OK in the message boxes of a test.
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace depcalc::testing_support {

/// Answers each message box of this process as it comes, from a thread of its own, and keeps what
/// it said.
class BoxAnswerer {
 public:
  BoxAnswerer();
  ~BoxAnswerer();
  BoxAnswerer(const BoxAnswerer&) = delete;
  BoxAnswerer& operator=(const BoxAnswerer&) = delete;

  /// "Title: text" of each box so far.
  [[nodiscard]] std::vector<std::string> boxes();

 private:
  void answerOne();

  std::mutex mutex_;
  std::vector<std::string> boxes_;
  std::atomic<bool> done_ = false;
  std::thread thread_;
};

}  // namespace depcalc::testing_support
