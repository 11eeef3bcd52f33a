// Any automation host as the host that the calculator asks.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>

#include "host/host.h"

namespace depcalc {

/// The host behind `application`, an object with the members of DepCalcHost's HostApplication.
/// It is reached by the members' names alone, so a host may be written in whatever makes
/// automation objects. What a call answers is read as the role asks; what cannot be read so is
/// error 13. The object is held as long as this one or a company file of it listens.
std::shared_ptr<HostApplication> automationApplication(IDispatch* application);

/// The same for a company file alone.
std::shared_ptr<HostCompanyFile> automationCompanyFile(IDispatch* file);

}  // namespace depcalc
