// What all five user controls share: which process this is, and the host's palette.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "controls/user_control.h"
#include "host/host.h"

namespace depcalc {

/// Creates the host's application object; an error reaches the caller.
using CreateHost = std::function<std::shared_ptr<HostApplication>()>;

/// What the page around a control says about itself.
struct AmbientProperties {
  bool UserMode = true;  ///< false while the control is being designed
};

/// The full path of the running executable, cut off after 256 characters; empty when it cannot be
/// had.
std::optional<std::string> runningExecutablePath();

class UtilModule {
 public:
  using ExecutablePath = std::function<std::optional<std::string>()>;

  explicit UtilModule(CreateHost create_host,
                      ExecutablePath executable_path = runningExecutablePath)
      : create_host_(std::move(create_host)), executable_path_(std::move(executable_path)) {}

  /// Whether this process is the host, or the development environment with the control in it.
  [[nodiscard]] bool IsHostProcess() const;

  /// In a host process, gives `target` the palette of the open company file. With `ambient`, only
  /// where that says that the control is being used. No company file open: error 91.
  void ApplyHostPalette(UserControl& target, const AmbientProperties* ambient) const;

 private:
  CreateHost create_host_;
  ExecutablePath executable_path_;
};

}  // namespace depcalc
