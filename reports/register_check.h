// The register check: what an accountant should look at before the year's reports go out.
#pragma once

#include "reports/register.h"
#include "reports/table.h"

namespace depcalc {

struct CheckedRegister {
  Report report;
  bool has_errors = false;
};

/// Errors, warnings and notes, by the asset's number. Errors are what makes a report wrong,
/// warnings what may, and notes what a reader could wonder at.
CheckedRegister checkReport(const RegisterOfAssets& assets);

}  // namespace depcalc
