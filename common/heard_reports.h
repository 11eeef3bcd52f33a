// What the error traps reported meanwhile.
#pragma once

#include <string>

#include "common/report_error.h"

namespace depcalc {

/// Listens while it lives. That something failed, and that memory ran out, is known even where
/// there was no memory to keep the report's text.
class HeardReports {
 public:
  [[nodiscard]] bool any() const { return any_; }
  [[nodiscard]] bool ofMemory() const { return of_memory_; }
  /// "" where there is none, or where it could not be kept.
  [[nodiscard]] const std::string& first() const { return first_; }
  [[nodiscard]] const std::string& last() const { return last_; }

 private:
  void hear(const ErrorReport& report) {
    const bool is_first = !any_;
    any_ = true;
    of_memory_ = of_memory_ || report.isOfMemory();
    last_.clear();
    last_ = report.text();
    if (is_first) first_ = last_;
  }

  bool any_ = false;
  bool of_memory_ = false;
  std::string first_;
  std::string last_;
  ErrorReportHook hook_{[this](const ErrorReport& report) { hear(report); }};
};

}  // namespace depcalc
