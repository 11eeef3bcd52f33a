// A data table of an automation host.
#pragma once

#include <memory>

#include "host/host.h"
#include "windows/host/automation_object.h"

namespace depcalc {

/// The table behind `table`. Null is an object that answers every call with error 91.
std::shared_ptr<HostTable> automationTable(AutomationObject::Dispatch table);

}  // namespace depcalc
