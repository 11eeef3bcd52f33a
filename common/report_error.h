// Where the reports of trapped errors go.
#pragma once

#include <functional>

#include "common/error_report.h"

namespace depcalc {

/// Receives the report of every trapped run-time error and does nothing with it unless an
/// ErrorReportHook stands. Users never see these reports as they are.
void ReportError(const ErrorReport& report);

/// While it lives, the reports made on this thread go to `listener` instead of nowhere. Hooks
/// nest: the innermost one hears. Made for tests and for a host that wants to know.
class ErrorReportHook {
 public:
  using Listener = std::function<void(const ErrorReport& report)>;

  explicit ErrorReportHook(Listener listener);
  ~ErrorReportHook();
  ErrorReportHook(const ErrorReportHook&) = delete;
  ErrorReportHook& operator=(const ErrorReportHook&) = delete;

  /// For a listener that only wants to know: the hook around this one hears the report, too.
  void passOn(const ErrorReport& report) const {
    if (outer_ != nullptr) outer_->listener_(report);
  }

 private:
  friend void ReportError(const ErrorReport& report);

  Listener listener_;
  ErrorReportHook* outer_;
};

}  // namespace depcalc
