// Golden files: a script and what it prints, in one file.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "DepCalc/screen_maker.h"
#include "tests/drive/driver.h"

namespace depcalc::drive {

struct GoldenSettings {
  DriveOptions options{Date::strict(2024, 6, 15)};
  Date fiscal_year_start = Date::strict(2024, 1, 1);
  bool company_file = true;
};

/// Makes the host that a golden file is replayed on.
using HostMaker = std::function<std::unique_ptr<DriveHost>(const GoldenSettings& settings)>;

/// What a golden file ought to read. Lines that begin with "> " are commands; what a command
/// prints stands below it. Lines that begin with "#" are comments and stay; before the first
/// command "# today: 2024-06-15", "# fiscal year: 2024-04-01" and "# option: --manual-paint",
/// "# option: --no-host-file" or "# option: DRIVE_EVENTS" say how to run. A script that cannot go
/// on ends with "stopped: " and the reason.
std::string goldenTranscript(std::string_view file, const HostMaker& make_host,
                             ScreenMaker& screens, const DriveParts& parts = {});

}  // namespace depcalc::drive
