#include "common/trapped.h"

#include <new>
#include <string>

#include "common/report_error.h"

namespace depcalc {

namespace {

void report(std::string_view procedure, const RuntimeError& error) {
  std::string report(procedure);
  report.append(" Error#").append(std::to_string(error.number()));
  report.append(": ").append(error.description());
  ReportError(report);
}

/// The listener may have no memory to keep even this.
void reportBriefly() {
  try {
    ReportError("Error#7: Out of memory");
  } catch (const std::bad_alloc&) {
    return;
  }
}

}  // namespace

void reportTrapped(std::string_view procedure, const RuntimeError& error) {
  try {
    report(procedure, error);
  } catch (const std::bad_alloc&) {
    reportBriefly();
  }
}

}  // namespace depcalc
