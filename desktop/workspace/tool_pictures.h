// The pictures of the toolbar, as strokes.
#pragma once

#include <span>
#include <string_view>

#include "controls/button_pictures.h"

namespace depcalc::desktop {

/// "dispose", "undo", "redo", "import", "reports", and those of the calculator's buttons: "new",
/// "edit", "print". None: empty.
[[nodiscard]] std::span<const Stroke> toolPicture(std::string_view name);

}  // namespace depcalc::desktop
