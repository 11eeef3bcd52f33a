// The host of a calculator that is driven by a script.
#pragma once

#include <memory>
#include <string>

#include "host/host.h"

namespace depcalc::drive {

/// One company file at a time, opened and closed by the script.
class DriveHost {
 public:
  virtual ~DriveHost() = default;

  [[nodiscard]] virtual std::shared_ptr<HostApplication> application() = 0;
  /// Opens a company file, closing the one that is open. Throws what the host throws.
  virtual void open(const std::string& path) = 0;
  virtual void close() = 0;
  /// Mode of the open file. No file open: error 91.
  virtual void setMultiUser(bool multi_user) = 0;
};

}  // namespace depcalc::drive
