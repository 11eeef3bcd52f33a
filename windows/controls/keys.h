// What the keys of the system mean to the calculator.
#pragma once

#include <windows.h>

#include <optional>

#include "controls/user.h"

namespace depcalc::native {

/// The direction of an arrow key; nothing for other keys.
[[nodiscard]] std::optional<Direction> directionOf(WPARAM key);

/// Whether the control that has the focus uses it itself, although a host might take it otherwise.
[[nodiscard]] bool isControlsOwn(WPARAM key);

/// Whether a key went down, with Alt or without.
[[nodiscard]] inline bool isKeyDown(UINT message) {
  return message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
}

}  // namespace depcalc::native
