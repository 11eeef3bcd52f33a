// How the host treats its add-ins.
#pragma once

#include "host/host.h"

namespace depcalc {

class IOrvAddIn {
 public:
  virtual ~IOrvAddIn() = default;

  virtual void Initialize(HostApplication& host) = 0;
  virtual void AboutToTerminate() = 0;
  virtual void Terminate() = 0;
};

}  // namespace depcalc
