// The file that keeps a company's steps.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/history/history.h"

namespace depcalc {

/// A journal in front of the company file: what is to be done to that is written here first, with
/// the digests of the states before and after. Which of them the company file then has, decides
/// whether it was done; a process may die anywhere between.
///
/// Nothing here throws but for want of memory: where the file cannot be written, the steps are not
/// kept beyond this object's life, and a later one may be.
class StepLog {
 public:
  explicit StepLog(std::string path) : path_(std::move(path)) {}

  enum class Found {
    nothing,  ///< no file
    steps,    ///< of the state that was asked for
    other,    ///< the file belongs to another state
    damaged,  ///< or is not what was written
  };
  /// The steps that lead to and from `state`; none where the file is of another one.
  Found read(std::uint64_t state, History& history);

  /// `step` is about to be done at the position of `history`. What was announced before and did not
  /// come about is void.
  void announce(const History& history, const Step& step);
  /// The company is about to be moved to the state at `position`.
  void announceMove(const History& history, std::size_t position);

  /// The steps are kept in this file from now on.
  void moveTo(const History& history, std::string path);
  /// What the file has does not lead to the company's state any more: it is written anew.
  void startAnew() { stale_ = true; }

  /// Whether what was announced last is in the file.
  [[nodiscard]] bool isKept() const { return !stale_; }

 private:
  void put(const History& history, std::uint64_t start, std::string_view entry);
  [[nodiscard]] bool mustBeWrittenAnew(const History& history) const;
  void rewrite(const History& history, std::uint64_t start, std::string_view entry);
  [[nodiscard]] bool writeAnew(const History& history, std::uint64_t start, std::string_view entry);

  std::string path_;
  std::uint64_t bytes_ = 0;      ///< that the file has
  std::uint64_t forgotten_ = 0;  ///< steps before the file's first one
  bool stale_ = true;            ///< the file is not what was announced
};

}  // namespace depcalc
