// Company files on the disk, for scripts.
#pragma once

#include <functional>
#include <string>

#include "host/listeners.h"
#include "host/sqlite/company_file.h"
#include "tests/drive/drive_host.h"

namespace depcalc::drive {

class SqliteDriveHost : public DriveHost {
 public:
  struct Options {
    Date today;
    std::string directory;  ///< where relative paths begin; "" is the current one
    int new_month = 0;      ///< a file that is not there is made, its fiscal year beginning here
  };

  explicit SqliteDriveHost(Options options);
  ~SqliteDriveHost() override;

  std::shared_ptr<HostApplication> application() override;
  void open(const std::string& path) override;
  void close() override;
  void setMultiUser(bool multi_user) override;

 private:
  class Application;

  [[nodiscard]] SqliteCompanyFile::Opened openOrMake(const std::string& path) const;

  Options options_;
  std::shared_ptr<Application> application_;
};

}  // namespace depcalc::drive
