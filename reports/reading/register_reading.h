// A company's register read for its reports, value by value, from any host.
#pragma once

#include <memory>
#include <string>

#include "host/host.h"
#include "reports/register.h"

namespace depcalc {

/// What the records of the open company file hold, as saved. A value that is missing or cannot be
/// read as its kind is taken as empty or 0, and the asset's `unreadable` says so; so an asset that
/// the calculator would read only up to there is read whole. An error of the host reaches the
/// caller, and so does memory that runs out.
RegisterOfAssets readRegisterOfAssets(const std::shared_ptr<HostCompanyFile>& file,
                                      std::string company, Date today);

/// Asset `number` by itself, read the same way, with the units that count for it. Not found:
/// error 9.
SavedAsset readSavedAsset(const std::shared_ptr<HostCompanyFile>& file, std::int32_t number,
                          Date today);

}  // namespace depcalc
