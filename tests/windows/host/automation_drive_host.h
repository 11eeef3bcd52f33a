// Company files for scripts, behind automation objects.
#pragma once

#include "tests/drive/memory_drive_host.h"
#include "tests/windows/host/host_class.h"
#include "tests/windows/host/served_host.h"
#include "windows/host/automation_host.h"

namespace depcalc::drive {

/// Company files in memory that the calculator reaches by automation alone.
class AutomationDriveHost final : public MemoryDriveHost {
 public:
  using MemoryDriveHost::MemoryDriveHost;

  std::shared_ptr<HostApplication> application() override {
    const auto served = testing_support::servedApplication(MemoryDriveHost::application());
    return automationApplication(served.Get());
  }

 private:
  testing_support::Apartment apartment_;
};

}  // namespace depcalc::drive
