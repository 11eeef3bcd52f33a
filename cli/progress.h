// How far a long job is, for people who wait.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "cli/clock.h"
#include "cli/output.h"

namespace depcalc {

/// Keeps one line up to date on a terminal while the job takes longer than a second, and wipes
/// it away at the end. Says nothing where there is no terminal.
class Progress {
 public:
  /// `doing` is for example "Saving assets".
  Progress(Output& errors, std::string doing, std::size_t total, Now now);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void reached(std::size_t done);

 private:
  Output& errors_;
  std::string doing_;
  std::size_t total_;
  bool wanted_;
  bool shown_ = false;
  Now now_;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace depcalc
