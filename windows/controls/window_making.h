// A window for each control that has one.
#pragma once

#include <memory>
#include <vector>

#include "controls/user_control.h"
#include "windows/controls/control_window.h"

namespace depcalc::native {

/// Makes the window of `page` as a child of `parent` and those of everything inside it, each in
/// front of what it is stacked on: an outer one comes before what it contains.
[[nodiscard]] std::vector<std::shared_ptr<ControlWindow>> makeWindows(UserControl& page,
                                                                      Surface& surface,
                                                                      HWND parent);

}  // namespace depcalc::native
