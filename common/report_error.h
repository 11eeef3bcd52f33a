// Where the reports of trapped errors go.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace depcalc {

/// Receives the text of every trapped run-time error, for example
/// "DepCalc::Get DepItem Error#9: Subscript out of range". Does nothing with it unless an
/// ErrorReportHook stands. Users never see these texts.
void ReportError(std::string_view report);

/// While it lives, the reports made on this thread go to `listener` instead of nowhere. Hooks
/// nest: the innermost one hears. Made for tests and for a host that wants to know.
class ErrorReportHook {
 public:
  using Listener = std::function<void(std::string_view report)>;

  explicit ErrorReportHook(Listener listener);
  ~ErrorReportHook();
  ErrorReportHook(const ErrorReportHook&) = delete;
  ErrorReportHook& operator=(const ErrorReportHook&) = delete;

 private:
  friend void ReportError(std::string_view report);

  Listener listener_;
  ErrorReportHook* outer_;
};

}  // namespace depcalc
