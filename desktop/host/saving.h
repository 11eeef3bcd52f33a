// Changes of the open company that the calculator has no hand in.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "desktop/host/desktop_application.h"

namespace depcalc::desktop {

/// Saves something; answers what was reported.
using Save = std::function<std::optional<std::string>()>;

/// What went wrong in `save`, for the user; "" where nothing did.
[[nodiscard]] QString problemOfSaving(const DesktopApplication& application, const Save& save);
/// The same of a step that can be undone under this name.
[[nodiscard]] QString problemOfStep(DesktopApplication& application, StepKind kind,
                                    const Save& save);

}  // namespace depcalc::desktop
