#pragma once

#include <string>
#include <vector>

#include "common/report_error.h"

namespace depcalc {

/// Collects the error reports made while it lives.
class Reports {
 public:
  [[nodiscard]] const std::vector<std::string>& all() const { return reports_; }
  [[nodiscard]] std::string last() const { return reports_.empty() ? "" : reports_.back(); }

 private:
  std::vector<std::string> reports_;
  ErrorReportHook hook_{[this](const ErrorReport& report) { reports_.push_back(report.text()); }};
};

}  // namespace depcalc
