// Companies on a server, for scripts.
#pragma once

#include <memory>
#include <string>

#include "tests/drive/drive_host.h"
#include "values/date.h"

namespace depcalc::drive {

/// A company comes into being when it is first opened. Those of each host are its own.
class ServerDriveHost final : public DriveHost {
 public:
  ServerDriveHost(Date today, int new_month);
  ~ServerDriveHost() override;

  std::shared_ptr<HostApplication> application() override;
  void open(const std::string& path) override;
  void close() override;
  void setMultiUser(bool multi_user) override;

 private:
  class Application;

  Date today_;
  int new_month_;
  std::string prefix_;
  std::shared_ptr<Application> application_;
};

}  // namespace depcalc::drive
