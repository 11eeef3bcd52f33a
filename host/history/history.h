// The steps of a company, and which of them are done.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>

#include "host/history/step.h"

namespace depcalc {

/// The steps up to the position are done; those behind it were undone and can be done again.
class History {
 public:
  /// The oldest steps go where there are more than this, or where together they take more memory;
  /// the last one stays. Fifty deletions at the top of the longest register fit.
  static constexpr std::size_t most_steps = 200;
  static constexpr std::size_t most_bytes = std::size_t{96} << 20;

  [[nodiscard]] const std::deque<Step>& steps() const { return steps_; }
  [[nodiscard]] std::size_t position() const { return position_; }
  /// How many steps are forgotten: what the oldest one's number is, counted from 0.
  [[nodiscard]] std::uint64_t forgotten() const { return forgotten_; }
  /// The digest of the state at `position`, which needs at least one step.
  [[nodiscard]] std::uint64_t stateAt(std::size_t position) const {
    return position == 0 ? steps_.front().before : steps_[position - 1].after;
  }
  /// What the steps take.
  [[nodiscard]] std::size_t bytes() const { return bytes_; }

  /// The step is done, in the state at the position; what could be done again cannot be any more.
  void add(Step step);
  /// `position` is at most the number of steps.
  void moveTo(std::size_t position) { position_ = position; }
  /// Forgets everything; a new history would ask for memory.
  void clear() noexcept {
    steps_.clear();
    position_ = 0;
    forgotten_ = 0;
    bytes_ = 0;
  }

 private:
  std::deque<Step> steps_;
  std::size_t position_ = 0;
  std::uint64_t forgotten_ = 0;
  std::size_t bytes_ = 0;
};

}  // namespace depcalc
