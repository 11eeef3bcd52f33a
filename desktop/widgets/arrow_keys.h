// Arrow keys as the control model names them.
#pragma once

#include <Qt>
#include <optional>

#include "controls/user.h"

namespace depcalc::desktop {

[[nodiscard]] inline std::optional<Direction> directionOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return Direction::left;
    case Qt::Key_Right:
      return Direction::right;
    case Qt::Key_Up:
      return Direction::up;
    case Qt::Key_Down:
      return Direction::down;
    default:
      return std::nullopt;
  }
}

}  // namespace depcalc::desktop
