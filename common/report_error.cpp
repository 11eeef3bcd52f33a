#include "common/report_error.h"

#include <utility>

namespace depcalc {
namespace {

thread_local ErrorReportHook* current_hook = nullptr;

}  // namespace

void ReportError(const ErrorReport& report) {
  if (current_hook != nullptr) current_hook->listener_(report);
}

ErrorReportHook::ErrorReportHook(Listener listener)
    : listener_(std::move(listener)), outer_(std::exchange(current_hook, this)) {}

ErrorReportHook::~ErrorReportHook() { current_hook = outer_; }

}  // namespace depcalc
