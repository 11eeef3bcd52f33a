#include "common/trapped.h"

#include <string>

#include "common/report_error.h"

namespace depcalc {

void reportTrapped(std::string_view procedure, const RuntimeError& error) {
  std::string report(procedure);
  report.append(" Error#").append(std::to_string(error.number()));
  report.append(": ").append(error.description());
  ReportError(report);
}

}  // namespace depcalc
