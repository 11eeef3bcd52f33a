// Lets every user control on a stage reach the host's palette.
#pragma once

#include "DepCalc/util_module.h"
#include "controls/stage.h"

namespace depcalc {

/// As long as it lives, SetupPalette of the controls on `stage` applies the palette through
/// `util`, with no ambient object.
class HostPalette {
 public:
  HostPalette(Stage& stage, const UtilModule& util) : stage_(stage) {
    stage.setHostPalette([&util](UserControl& target) { util.ApplyHostPalette(target, nullptr); });
  }
  ~HostPalette() { stage_.setHostPalette(nullptr); }
  HostPalette(const HostPalette&) = delete;
  HostPalette& operator=(const HostPalette&) = delete;

 private:
  Stage& stage_;
};

}  // namespace depcalc
